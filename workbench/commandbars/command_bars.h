#ifndef QUOR_WORKBENCH_COMMANDBARS_COMMAND_BARS_H
#define QUOR_WORKBENCH_COMMANDBARS_COMMAND_BARS_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/control_registry.h"

namespace quor::workbench {

// A bar that Outlook keeps from one start to the next: without sinks and picture handlers, its
// temporary controls left out.
struct StoredControl {
  long type = mso::kButton;
  ControlSettings settings;
  std::vector<StoredControl> items;
};
struct StoredBar {
  BarSettings settings;
  std::vector<StoredControl> controls;
};

// The command bars of one explorer or inspector window: one object for each window. Answers
// "CommandBars" of the window, and takes the user's actions.
//
// Up to Outlook 12 (explorers) and 11 (inspectors) the bars are Office's usual ones. From 14 on the
// object is there but FindControl finds nothing and no window shows a bar: Kind::Hidden.
//
// The user's actions throw CUserActionError where a user could not do it: the control is not there,
// disabled, hidden, on a hidden bar, in a disabled menu. Controls are named by ControlFace::handle,
// or by a path as FindFace (ui/face.h) reads it.
class CCommandBars final : public CEventSource {
 public:
  enum class Kind { Shown, Hidden };

  // `registry` is shared by all windows of the session. A Shown object begins with Outlook's own
  // menu bar and standard toolbar.
  CCommandBars(CModel& model, std::shared_ptr<CControlRegistry> registry, Kind kind);

  // What Application answers; borrowed.
  void SetApplication(IDispatch* application) noexcept { m_application = application; }
  // Called after every change that shows; may come many times in a row. Empty: none.
  void SetChangeHandler(std::function<void()> handler) { m_changed = std::move(handler); }
  // The window closes: all bars and controls die, whoever still holds them.
  void Close() noexcept;

  // --- what Outlook keeps between starts ---
  std::vector<StoredBar> StoredBars() const;
  void Restore(const std::vector<StoredBar>& bars);

  // --- what is there ---
  std::vector<BarFace> Faces() const;  // every bar, hidden ones and Outlook's own included
  // Controls of all bars that were added, or everything.
  std::vector<ControlFace> ControlFaces(bool withBuiltIn = false) const;

  // --- what the user does ---
  void Click(std::span<const std::wstring> path);
  void EnterText(std::span<const std::wstring> path, const std::wstring& text);  // and Enter
  void PickEntry(std::span<const std::wstring> path, const std::wstring& entry);
  void DeleteControl(std::span<const std::wstring> path);  // by "customize"
  void Click(int handle);
  void EnterText(int handle, const std::wstring& text);
  void PickEntry(int handle, size_t entry);  // from 0
  void DeleteControl(int handle);
  void MoveBar(const std::wstring& name, mso::BarPosition position, long left, long top, long row);
  void ShowBar(const std::wstring& name, bool show);

  // --- for bars and controls ---
  IDispatch* ApplicationObject() const noexcept { return m_application; }
  bool FindsControls() const noexcept { return m_kind == Kind::Shown; }
  CCommandBar* FindBar(const std::wstring& name) const noexcept;
  void Remove(CCommandBar& bar);
  void Changed() const;

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();
  static const EventTable& Events();

  IDispatch* Application() const { return m_application; }
  IDispatch* ActiveMenuBar() const;
  CModelPtr<CCommandBar> Add(const CArguments& arguments);
  long Count() const;
  CModelPtr<CCommandBar> Item(const CArguments& arguments) const;
  CModelPtr<CCommandBarControl> FindControl(const CArguments& arguments) const;
  CModelPtr<CAutomation> FindControls(const CArguments& arguments) const;

  CModelPtr<CCommandBar> AddBar(BarSettings settings);
  CCommandBar& BarForUser(const std::wstring& name, long protection) const;
  CModelPtr<CCommandBarControl> ControlByHandle(int handle) const;
  CModelPtr<CCommandBarControl> ReachableControl(int handle) const;
  int HandleAt(std::span<const std::wstring> path) const;
  long NextRow(long position) const noexcept;

  const Kind m_kind;
  std::shared_ptr<CControlRegistry> m_registry;
  IDispatch* m_application = nullptr;
  std::function<void()> m_changed;
  std::vector<CModelPtr<CCommandBar>> m_bars;
};

}  // namespace quor::workbench

#endif
