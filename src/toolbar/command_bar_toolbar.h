#ifndef QUOR_TOOLBAR_COMMAND_BAR_TOOLBAR_H
#define QUOR_TOOLBAR_COMMAND_BAR_TOOLBAR_H

#include <string>
#include <string_view>
#include <vector>

#include "com/event_connection.h"
#include "module/diagnostic_log.h"
#include "outlook/command_bars.h"
#include "settings/configuration.h"
#include "toolbar/bar_menu.h"
#include "toolbar/control_faces.h"
#include "toolbar/picture_loader.h"
#include "toolbar/redraw.h"
#include "toolbar/toolbar_actions.h"
#include "toolbar/toolbar_layout.h"

namespace quor {

// The telephone's command bar in Outlook's main window. Without a bar every operation does nothing.
// Each redraw looks the controls up by type and tag, so that a control deleted by the user is
// skipped.
class CCommandBarToolbar {
 public:
  // All must outlive the toolbar.
  CCommandBarToolbar(const IFaceSource& source, IToolbarActions& actions, CPictureLoader& pictures,
                     IEventOwner& owner, CDiagnosticLog& log) noexcept;
  ~CCommandBarToolbar() { Release(); }
  CCommandBarToolbar(const CCommandBarToolbar&) = delete;
  CCommandBarToolbar& operator=(const CCommandBarToolbar&) = delete;

  // Creates the temporary bar with its seven controls and shows it at `place`, or at the top if
  // `place` holds no position. First deletes a bar of the same name, which a crash may have left. A
  // failing call throws _com_error and leaves no bar. `withPictures` is false if buttons cannot
  // have pictures.
  void Create(const CCommandBars& bars, const std::wstring& name, const ToolBarRecord& place,
              bool withPictures);

  // Updates captions and enabled flags of the seven controls.
  void Redraw();
  // Disables every control except the options, because the base is disconnected.
  void DisableControls();

  void PutCallFromCellButton();
  // Disables the items of the other cells until the cells are shown again.
  void DisableOtherCellItems(int cell);
  void PutCallerList();
  void PutSpeedDialButton();

  // Throws _com_error if the dial box fails.
  void ClearDialList();
  // Fills the list; the text in the box stays.
  void ShowDialList();
  // Raises no change event.
  void SetDialText(std::wstring_view text);

  // Stores the bar's position; the record is unchanged if there is no bar or its position cannot be
  // read.
  void SavePlace(ToolBarRecord& place) noexcept;

  // Disconnects the sinks. The bar stays until Delete or Release.
  void Unadvise() noexcept;
  // Throws _com_error on failure.
  void Delete();
  void Release() noexcept;

 private:
  void AddControls();
  void AddControl(const CCommandBarControls& controls, const ControlLayout& layout);
  void SetUp(const CCommandBarControl& control, const ControlLayout& layout);
  void SetUpDialBox(const IDispatchPtr& control, const ControlLayout& layout);
  void SetUpMenu(const IDispatchPtr& control, const ControlLayout& layout);
  void SetUpButton(const IDispatchPtr& control, const ControlLayout& layout);
  void Connect(CEventConnection& connection, IDispatch* control, REFIID events,
               EventHandler handler);

  void DrawControls();
  void DrawControl(const ControlLayout& layout);
  std::vector<ItemFace> CellFaces() const;
  CCommandBarControl Find(const ControlLayout& layout) const;
  CCommandBarComboBox FindDialBox() const;
  void OnDialBoxChanged(IDispatch* box);
  void OnButtonClicked(int control);
  CEventConnection& ConnectionOf(int control) noexcept;

  const IFaceSource& m_source;
  IToolbarActions& m_actions;
  CPictureLoader& m_pictures;
  CDiagnosticLog& m_log;

  CCommandBars m_bars;
  CCommandBar m_bar;
  CEventConnection m_dialBoxEvents;
  CEventConnection m_line1Events;
  CEventConnection m_line2Events;
  CEventConnection m_optionsEvents;
  CBarMenu<CCallFromCellCommandBarButton> m_cells;
  CBarMenu<CCallerCommandBarButton> m_callers;
  CBarMenu<CSpeedDialEntryMenu> m_speedDial;
  bool m_withPictures = false;
  bool m_settingDialBox = false;
  bool m_connected = true;
  std::wstring m_dialText;
  CRedraw m_controlsRedraw;
  CRedraw m_dialListRedraw;
  CRedraw m_dialTextRedraw;
};

}  // namespace quor

#endif
