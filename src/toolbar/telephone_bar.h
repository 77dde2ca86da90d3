#ifndef QUOR_TOOLBAR_TELEPHONE_BAR_H
#define QUOR_TOOLBAR_TELEPHONE_BAR_H

#include <cstdint>
#include <string>

#include "module/diagnostic_log.h"
#include "outlook/command_bars.h"
#include "settings/configuration.h"

namespace quor {

// Buttons of Outlook 2000 have neither picture nor mask.
inline constexpr int32_t kFirstPictureVersion = 10;

// What every command bar of ours has in common, in the main window and in those of contacts.

// Takes away the bar of this name if there is one. Throws _com_error when Outlook refuses.
void DeleteStaleBar(const CCommandBars& bars, const std::wstring& name);

// A new temporary bar at the top, not shown yet. One of the same name, left by a crash or by a
// window closed before, is deleted first. Throws _com_error.
CCommandBar MakeBar(const CCommandBars& bars, const std::wstring& name);

// Puts the bar where `place` says and shows it unless the user had hidden it; a record that tells
// nothing leaves it where it is. Throws _com_error when the bar cannot be shown; a place that
// Office does not take is only logged.
void PlaceBar(const CCommandBar& bar, const ToolBarRecord& place, CDiagnosticLog& log);

// Where the bar stands now; the record stays as it is when the bar does not tell, which is logged.
void ReadPlace(const CCommandBar& bar, ToolBarRecord& place, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
