#ifndef QUOR_WORKBENCH_COMMANDBARS_CONTROL_H
#define QUOR_WORKBENCH_COMMANDBARS_CONTROL_H

#include <memory>
#include <string>
#include <vector>

#include "workbench/commandbars/control_registry.h"
#include "workbench/commandbars/mso.h"
#include "workbench/office/event_source.h"
#include "workbench/ui/face.h"

namespace quor::workbench {

class CCommandBar;

// The settings common to all controls.
struct ControlSettings {
  std::wstring caption;
  std::wstring tag;
  long id = mso::kCustomControl;
  bool enabled = true;
  bool visible = true;
  bool beginGroup = false;
  long width = 0;  // 0: as wide as it needs
};

// Base class of button, combo box and popup. Belongs to a bar until it is deleted; afterwards each
// member fails with E_FAIL and its sinks receive no events.
class CCommandBarControl : public CEventSource {
 public:
  std::string ObjectName() const override;

  ControlSettings settings;
  long TypeNumber() const { return m_type; }
  int Instance() const noexcept { return m_instance; }
  bool IsDeleted() const noexcept { return m_bar == nullptr; }
  CCommandBar* Bar() const noexcept { return m_bar; }
  // Null if the control, its menus and its bar are enabled and visible; otherwise the reason.
  const char* WhyOutOfReach() const noexcept;

  virtual ControlFace Face() const;
  virtual CCommandBar* Menu() const noexcept { return nullptr; }  // of a popup
  virtual void Click() {}
  virtual void Detach() noexcept;  // deleted, or its bar is deleted

 protected:
  CCommandBarControl(CModel& model, const CMemberTable& members,
                     std::shared_ptr<CControlRegistry> registry, CCommandBar& bar, long type);
  void OnGone() noexcept override;

  static const CMemberTable& ControlMembers();
  void RequireAlive() const override;
  // All live controls whose sinks receive this control's events, itself included.
  std::vector<CModelPtr<CCommandBarControl>> Twins();

 private:
  template <auto setting>
  static Member Setting(const wchar_t* name);
  void Set(std::wstring& setting, const CArguments& arguments);
  void Set(bool& setting, const CArguments& arguments);
  void Set(long& setting, const CArguments& arguments);  // not negative
  long Width() const;

  std::shared_ptr<CControlRegistry> m_registry;
  CCommandBar* m_bar;
  const long m_type;
  const int m_instance;
};

}  // namespace quor::workbench

#endif
