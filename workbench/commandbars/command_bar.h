#ifndef QUOR_WORKBENCH_COMMANDBARS_COMMAND_BAR_H
#define QUOR_WORKBENCH_COMMANDBARS_COMMAND_BAR_H

#include <functional>
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
  bool builtIn = false;
  bool enabled = true;
  bool visible = false;
  long row = 0;
  long left = 0;
  long top = 0;
  long width = 0;  // 0: as wide as its controls
  long height = 0;
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
  // Before the control at a position from 1, or at the end.
  CModelPtr<CCommandBarControl> Add(long type, std::optional<long> before = std::nullopt);
  void Remove(CCommandBarControl& control);
  // The first control on the bar or in its menus that `wanted` accepts; null: none.
  CModelPtr<CCommandBarControl> Find(
      const std::function<bool(const CCommandBarControl&)>& wanted) const;
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

  template <auto setting, long least, long most>
  static Member Number(const wchar_t* name);

  void RequireAlive() const override;
  void Delete();
  void SetEnabled(const CArguments& arguments);
  void SetVisible(const CArguments& arguments);
  long Height() const;
  long Width() const;

  std::shared_ptr<CControlRegistry> m_registry;
  CCommandBars* m_owner;
  CCommandBarPopup* m_popup = nullptr;
  const int m_handle;
  std::vector<CModelPtr<CCommandBarControl>> m_controls;
};

}  // namespace quor::workbench

#endif
