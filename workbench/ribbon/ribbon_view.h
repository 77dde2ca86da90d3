#ifndef QUOR_WORKBENCH_RIBBON_RIBBON_VIEW_H
#define QUOR_WORKBENCH_RIBBON_RIBBON_VIEW_H

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/ribbon/ribbon_host.h"
#include "workbench/ui/face.h"

namespace quor::workbench {

// The ribbon of one window. Queries a value from the add-in when it is first needed and caches it
// until it is invalidated.
//
// The user's actions throw CUserActionError if a user could not do them: the control is missing, on
// another tab, invisible, disabled, or in a disabled menu. Controls are identified by
// ControlFace::handle, or by a path as in FindFace (ui/face.h).
class CRibbonView {
 public:
  CRibbonView(CRibbonHost& host, CModelPtr<CAutomation> context);
  ~CRibbonView();
  CRibbonView(const CRibbonView&) = delete;
  CRibbonView& operator=(const CRibbonView&) = delete;

  // Selects a tab by idMso or id: "TabContacts". False if the document has no such tab.
  bool SelectTab(const std::wstring& tab);
  const std::wstring& ActiveTab() const noexcept { return m_activeTab; }

  // Which controls are queried: Drawn leaves out invisible controls and the contents of closed
  // menus, as Office does when it draws; Everything includes them.
  enum class Extent { Drawn, Everything };
  // Queries what a redraw of the tab needs and is not cached; returns the number of callbacks.
  uint64_t Redraw();
  RibbonTabFace Tab(const std::wstring& tab, Extent extent);
  std::vector<RibbonTabFace> Tabs(Extent extent);
  std::vector<ControlFace> ControlFaces();  // all controls of the active tab
  // Opens a menu and returns its items; their own menus stay closed.
  std::vector<ControlFace> OpenMenu(int handle) { return Faces(Reachable(handle), Extent::Drawn); }

  // --- the user's actions ---
  void Click(std::span<const std::wstring> path) { Click(HandleAt(path)); }
  void EnterText(std::span<const std::wstring> path,
                 const std::wstring& text);  // then presses Enter
  void PickEntry(std::span<const std::wstring> path, const std::wstring& entry);
  void Click(int handle);
  void EnterText(int handle, const std::wstring& text);
  void PickEntry(int handle, size_t entry);  // from 0

  // --- for the host ---
  void Invalidate();
  bool InvalidateControl(const std::wstring& id);
  void ForgetImages();

 private:
  // Values queried from the add-in or given in the document.
  struct Values {
    std::optional<std::wstring> label;
    std::optional<std::wstring> text;
    std::optional<bool> enabled;
    std::optional<bool> visible;
    std::optional<PixelsPtr> image;
    std::optional<std::vector<std::wstring>> entries;
  };
  struct Entry {
    const RibbonNode* node = nullptr;
    int parent = -1;  // index
    std::vector<int> children;
    CModelPtr<CRibbonControl> object;  // created at the first callback
    Values values;
  };

  void AddEntries(const RibbonNode& node, int parent, const CModelPtr<CAutomation>& context);
  Entry& At(int index) { return m_entries[static_cast<size_t>(index)]; }
  IDispatch* ObjectOf(Entry& entry);
  std::optional<CValue> Ask(Entry& entry, const char* getter, ResultKind kind,
                            std::vector<CValue> more = {});
  std::wstring Text(Entry& entry, std::optional<std::wstring>& known, const char* fixed,
                    const char* getter);
  bool Flag(Entry& entry, std::optional<bool>& known, const char* getter);
  bool IsEnabled(Entry& entry) { return Flag(entry, entry.values.enabled, "getEnabled"); }
  bool IsVisible(Entry& entry) { return Flag(entry, entry.values.visible, "getVisible"); }
  PixelsPtr Image(Entry& entry);
  PixelsPtr AskImage(Entry& entry);
  const std::vector<std::wstring>& Entries(Entry& entry);
  std::vector<std::wstring> AskEntries(Entry& entry);

  RibbonTabFace TabFace(Entry& tab, Extent extent);
  RibbonGroupFace GroupFace(Entry& group, Extent extent);
  ControlFace Face(int index, Extent extent, bool withItems);
  std::vector<ControlFace> Faces(const Entry& parent, Extent extent);

  int HandleAt(std::span<const std::wstring> path);
  Entry& Reachable(int handle);
  Entry& ReachableComboBox(int handle);
  void ChangeText(Entry& entry, const std::wstring& text);

  CRibbonHost& m_host;
  const CModelPtr<CAutomation> m_context;
  std::vector<Entry> m_entries;
  std::wstring m_activeTab;
};

}  // namespace quor::workbench

#endif
