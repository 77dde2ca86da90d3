#ifndef QUOR_WORKBENCH_COMMANDBARS_COMMAND_BAR_H
#define QUOR_WORKBENCH_COMMANDBARS_COMMAND_BAR_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/commandbars/control.h"

namespace quor::workbench {

class CCommandBars;
class CCommandBarPopup;

struct BarSettings {
  std::wstring name;
  long position = mso::kFloating;
  long type = mso::kNormalBar;
  bool temporary = false;
  bool builtIn = false;
  bool enabled = true;
  bool visible = false;
  long protection = 0;
  long row = 0;
  long left = 0;
  long top = 0;
  long width = 0;  // 0: as wide as its controls
  long height = 0;
};

// Arguments of CommandBarControls.Add.
struct NewControl {
  long type = mso::kButton;
  long id = mso::kCustomControl;
  std::wstring parameter;
  std::optional<long> before;  // from 1
  bool temporary = false;
};

// A toolbar, the menu bar, or the content of a popup. Belongs to its window's CommandBars until it
// is deleted; afterwards each member fails with E_FAIL.
class CCommandBar final : public CAutomation {
 public:
  CCommandBar(CModel& model, std::shared_ptr<CControlRegistry> registry, CCommandBars& owner,
              BarSettings initial);
  // The content of a popup.
  CCommandBar(CModel& model, std::shared_ptr<CControlRegistry> registry, CCommandBars& owner,
              CCommandBarPopup& popup);

  std::string ObjectName() const override { return Utf8FromWide(Name()); }

  BarSettings settings;
  int Handle() const noexcept { return m_handle; }
  CCommandBars* Owner() const noexcept { return m_owner; }
  CCommandBarPopup* OwnerPopup() const noexcept { return m_popup; }
  bool IsShown() const noexcept { return settings.enabled && settings.visible; }
  std::wstring Name() const;

  const std::vector<CModelPtr<CCommandBarControl>>& LiveControls() const;
  const std::vector<CModelPtr<CCommandBarControl>>& AllControls() const noexcept {
    return m_controls;
  }
  CModelPtr<CAutomation> Controls();
  CModelPtr<CCommandBarControl> Add(const NewControl& control);
  void Remove(CCommandBarControl& control);
  long IndexOf(const CCommandBarControl& control) const;
  void Collect(const ControlQuery& query, std::vector<CModelPtr<CCommandBarControl>>& found) const;
  BarFace Face() const;
  std::vector<ControlFace> ControlFaces() const;
  void Changed() const;
  void Detach() noexcept;
  // A control's default width on a toolbar, in pixels.
  static long UsualWidth(const ControlFace& face) noexcept;

 protected:
  void OnGone() noexcept override { Detach(); }

 private:
  static const CMemberTable& Members();

  void RequireAlive() const override;
  IDispatch* Application() const;
  void Delete();
  CModelPtr<CCommandBarControl> FindControl(const CArguments& arguments) const;
  void SetName(const CArguments& arguments);
  void SetEnabled(const CArguments& arguments);
  void SetVisible(const CArguments& arguments);
  long Height() const;
  long Width() const;
  template <auto setting>
  CValue Read() const {
    return settings.*setting;
  }
  template <auto setting, long least, long most>
  void Write(const CArguments& arguments) {
    const long value = arguments.Long(0);
    if (value < least || value > most) throw CModelError(E_INVALIDARG);
    settings.*setting = value;
    Changed();
  }

  std::shared_ptr<CControlRegistry> m_registry;
  CCommandBars* m_owner;
  CCommandBarPopup* m_popup = nullptr;
  const int m_handle;
  std::vector<CModelPtr<CCommandBarControl>> m_controls;
};

}  // namespace quor::workbench

#endif
