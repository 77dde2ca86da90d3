#ifndef QUOR_TOOLBAR_CONTACT_BAR_H
#define QUOR_TOOLBAR_CONTACT_BAR_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/command_bars.h"
#include "outlook/object_model.h"
#include "settings/configuration.h"
#include "toolbar/control_faces.h"
#include "toolbar/menu_items.h"
#include "toolbar/picture_loader.h"

namespace quor {

class CContactWindow;

struct ContactBarFaces {
  ItemFace menu;
  std::array<ItemFace, kLastTelNumberType> numbers;  // in the order of telNumberType
  std::array<ItemFace, 2> lines;
};

// The command bar in one contact's window: a menu of the contact's numbers and the two line
// buttons. Every call into Outlook may close the window, so the caller must hold a reference to the
// bar.
class CContactBar {
 public:
  // Creates the temporary bar with its controls, not yet shown. First deletes a bar of the same
  // name, because Outlook may give a new window the bars of a closed one. Skips pictures that fail,
  // and all of them if `pictures` is null. `number` makes the controls' tags unique among windows.
  // A failing call throws _com_error and leaves no bar. A number's click goes to the window, which
  // may remove the bar; a line's click goes to `actions`, which must outlive the bar.
  CContactBar(const CCommandBars& bars, const std::wstring& name, unsigned number,
              CPictureLoader* pictures, const std::weak_ptr<CContactWindow>& window,
              IToolbarActions& actions, IEventOwner& owner, CDiagnosticLog& log);
  ~CContactBar() { Remove(); }
  CContactBar(const CContactBar&) = delete;
  CContactBar& operator=(const CContactBar&) = delete;

  // Shows the bar at `place`, or at the top if `place` holds no position.
  void Place(const ToolBarRecord& place);
  // Updates the faces that have changed; must not be nested. Failures are logged and skipped.
  void Show(const ContactBarFaces& faces);

  // Stores the bar's position; the record is unchanged if the position cannot be read.
  void SavePlace(ToolBarRecord& place) noexcept;

  // Deletes and releases the bar; does nothing the second time.
  void Remove() noexcept;

 private:
  class CNumberItem;
  class CLineButton;
  template <typename Item>
  using Items = std::vector<std::shared_ptr<Item>>;

  void AddMenu(const CCommandBarControls& controls, unsigned number,
               const std::weak_ptr<CContactWindow>& window);
  // `control` is the same line's button on the main window's bar.
  void AddLine(const CCommandBarControls& controls, const std::wstring& tag, uint8_t lineType,
               int control, IToolbarActions& actions, CPictureLoader* pictures);
  template <typename Item>
  void ShowItems(const Items<Item>& items, const ItemFace* faces);

  IEventOwner& m_owner;
  CDiagnosticLog& m_log;
  CCommandBar m_bar;
  CCommandBarPopup m_menu;
  CShownFace m_menuFace;
  Items<CNumberItem> m_numbers;
  Items<CLineButton> m_lines;
};

}  // namespace quor

#endif
