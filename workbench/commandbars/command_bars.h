#ifndef QUOR_WORKBENCH_COMMANDBARS_COMMAND_BARS_H
#define QUOR_WORKBENCH_COMMANDBARS_COMMAND_BARS_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/control_registry.h"

namespace quor::workbench {

// The command bars of one explorer or inspector window, the window's "CommandBars" property. Each
// window has its own object. Also performs the user's actions.
//
// Up to Outlook 12 (explorers) and 11 (inspectors) these are Office's usual bars. From version 14
// on the object exists, but FindControl finds nothing and no window shows a bar: Kind::Hidden.
//
// The user's actions throw CUserActionError if a user could not do them: the control is missing,
// disabled or hidden, on a hidden bar, or in a disabled menu. Controls are identified by
// ControlFace::handle, or by a path as in FindFace (ui/face.h).
class CCommandBars final : public CAutomation {
 public:
  enum class Kind { Shown, Hidden };

  // `registry` is shared by all windows of the session. A Shown object starts with Outlook's own
  // menu bar and standard toolbar.
  CCommandBars(CModel& model, std::shared_ptr<CControlRegistry> registry, Kind kind);

  // Called after every visible change, possibly many times in a row. Empty: none.
  void SetChangeHandler(std::function<void()> handler) { m_changed = std::move(handler); }
  // The window closes: deletes all bars and controls, whoever still holds references.
  void Close() noexcept;

  // --- contents ---
  std::vector<BarFace> Faces() const;  // every bar, including hidden ones and Outlook's own
  // The controls of all bars; without `withBuiltIn`, of the added bars only.
  std::vector<ControlFace> ControlFaces(bool withBuiltIn = false) const;

  // --- the user's actions ---
  void Click(std::span<const std::wstring> path) { Click(HandleAt(path)); }
  void EnterText(std::span<const std::wstring> path,
                 const std::wstring& text);  // then presses Enter
  void PickEntry(std::span<const std::wstring> path, const std::wstring& entry);
  void DeleteControl(std::span<const std::wstring> path);  // with "customize"
  void Click(int handle);
  void EnterText(int handle, const std::wstring& text);
  void PickEntry(int handle, size_t entry);  // from 0
  void DeleteControl(int handle);
  void MoveBar(const std::wstring& name, mso::BarPosition position, long left, long top, long row);

  // --- for bars and controls ---
  CCommandBar* FindBar(const std::wstring& name) const noexcept;
  void Remove(CCommandBar& bar);
  void Changed() const;

 protected:
  void OnGone() noexcept override { Close(); }

 private:
  static const CMemberTable& Members();

  CModelPtr<CCommandBar> Add(const CArguments& arguments);
  CModelPtr<CCommandBar> Item(const CArguments& arguments);
  CModelPtr<CCommandBarControl> FindControl(const CArguments& arguments);

  void AddBuiltInBars();
  CModelPtr<CCommandBar> AddBar(BarSettings settings);
  CModelPtr<CCommandBarControl> ControlByHandle(int handle) const;
  CModelPtr<CCommandBarControl> ReachableControl(int handle) const;
  int HandleAt(std::span<const std::wstring> path) const;
  long NextRow(long position) const noexcept;

  const Kind m_kind;
  std::shared_ptr<CControlRegistry> m_registry;
  std::function<void()> m_changed;
  std::vector<CModelPtr<CCommandBar>> m_bars;
};

}  // namespace quor::workbench

#endif
