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

// A click on a contact's command bar. Called inside a boundary: throwing is allowed, and so is
// taking the bar away.
class IContactBarActions {
 public:
  virtual void DialContact(int telNumberType) = 0;
  virtual void ClickLine(uint8_t lineType) = 0;

 protected:
  ~IContactBarActions() = default;
};

struct ContactBarFaces {
  ItemFace menu;
  std::array<ItemFace, kTelNumberTypeCount> numbers;  // in the order of telNumberType
  std::array<ItemFace, 2> lines;
};

// The command bar in the window of one contact: a menu of the contact's numbers and the two line
// buttons. Every call into Outlook may close the window: whoever calls an operation holds a
// reference of his own.
class CContactBar {
 public:
  // Makes the temporary bar with its controls, not shown yet. Pictures that are refused are left
  // out; none are tried where `pictures` is null. A bar of the same name is deleted first: Outlook
  // may give a new window the bars of one closed before. `number` makes the tags of its controls
  // different from those of every other window. A failing call throws _com_error and leaves no bar.
  CContactBar(const CCommandBars& bars, const std::wstring& name, unsigned number,
              CPictureLoader* pictures, const std::weak_ptr<IContactBarActions>& actions,
              IEventOwner& owner, CDiagnosticLog& log);
  ~CContactBar() { Remove(); }
  CContactBar(const CContactBar&) = delete;
  CContactBar& operator=(const CContactBar&) = delete;

  // Shows the bar where `place` says, or at the top when that tells nothing.
  void Place(const ToolBarRecord& place);
  // Tells Office what has changed; not to be nested in itself. What cannot be shown is logged and
  // left out.
  void Show(const ContactBarFaces& faces);

  // The record stays as it is when the bar does not tell.
  void SavePlace(ToolBarRecord& place) noexcept;

  // Takes the bar out of its window and lets go of it; a second time does nothing.
  void Remove() noexcept;

 private:
  class CNumberItem;
  class CLineButton;
  template <typename Item>
  using Items = std::vector<std::shared_ptr<Item>>;

  struct LineLayout {
    uint8_t lineType;
    int picture;  // resource numbers
    int mask;
  };

  void AddMenu(const CCommandBarControls& controls, unsigned number,
               const std::weak_ptr<IContactBarActions>& actions);
  void AddLine(const CCommandBarControls& controls, const std::wstring& tag,
               const LineLayout& layout, const std::weak_ptr<IContactBarActions>& actions,
               CPictureLoader* pictures);
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
