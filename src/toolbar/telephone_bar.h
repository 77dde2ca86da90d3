#ifndef QUOR_TOOLBAR_TELEPHONE_BAR_H
#define QUOR_TOOLBAR_TELEPHONE_BAR_H

#include <cstdint>
#include <string>

#include "module/diagnostic_log.h"
#include "outlook/command_bars.h"
#include "settings/configuration.h"
#include "toolbar/picture_loader.h"
#include "toolbar/toolbar_layout.h"

namespace quor {

// Buttons of Outlook 2000 (version 9) have no pictures or masks.
inline constexpr int32_t kFirstPictureVersion = 10;

// Functions shared by the command bars of the main window and of contacts.

// Deletes the bar of this name if it exists. Throws _com_error on failure.
void DeleteStaleBar(const CCommandBars& bars, const std::wstring& name);

// Creates a temporary bar at the top, not yet shown. First deletes a bar of the same name, left by
// a crash or by a closed window. Throws _com_error.
CCommandBar MakeBar(const CCommandBars& bars, const std::wstring& name);

// Moves the bar to `place` and shows it unless the user had hidden it; without a recorded position
// the bar stays where it is. Throws _com_error if the bar cannot be shown; a position that Office
// rejects is only logged.
void PlaceBar(const CCommandBar& bar, const ToolBarRecord& place, CDiagnosticLog& log);

// Stores the bar's position. The record is unchanged if the position cannot be read, which is
// logged.
void ReadPlace(const CCommandBar& bar, ToolBarRecord& place, CDiagnosticLog& log) noexcept;

// Gives a button its picture and mask. Throws _com_error.
void SetPicture(const CCommandBarButton& button, const ControlLayout& layout,
                CPictureLoader& pictures);

}  // namespace quor

#endif
