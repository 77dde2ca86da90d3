#include "toolbar/main_toolbar.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "telephone/telephone_state.h"
#include "toolbar/telephone_bar.h"

namespace quor {

CMainToolbar::CMainToolbar(const IFaceSource& source, IToolbarActions& actions,
                           IContactRibbon& contacts, IMessageQueue& queue,
                           const CResourceLoader& resources, IEventOwner& owner,
                           CDiagnosticLog& log) noexcept
    : m_log(log),
      m_resources(resources),
      m_pictures(resources),
      m_bar(source, actions, m_pictures, owner, log),
      m_ribbon(source, actions, contacts, queue, m_pictures, log) {}

HRESULT CMainToolbar::Create(const CExplorer& explorer, int32_t appVersion,
                             const ToolBarRecord& place) noexcept {
  if (appVersion >= kFirstRibbonVersion) return S_OK;
  try {
    const CCommandBars bars(explorer.CommandBars());
    // A bar left by a crash may have its name in another language. It must go, because its controls
    // have our tags and would be found instead of the new ones.
    for (const std::wstring& name : m_resources.TextInEveryLanguage(IDS_PRODUCT_NAME))
      DeleteStaleBar(bars, name);
    m_bar.Create(bars, m_resources.Text(IDS_PRODUCT_NAME), place,
                 appVersion >= kFirstPictureVersion);
    return S_OK;
  } catch (const _com_error& error) {
    // The caller logs this failure.
    return FAILED(error.Error()) ? error.Error() : E_FAIL;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

void CMainToolbar::SetToolBarState() noexcept {
  m_log.Write("CAddin::SetToolBarState\n");
  m_ribbon.Invalidate();
  GuardCall(m_log, "SetToolBarState", [this] { m_bar.Redraw(); });
}

void CMainToolbar::Redraw() noexcept {
  GuardCall(m_log, "line buttons", [this] { m_bar.Redraw(); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::DisableControls() noexcept {
  GuardCall(m_log, "SetBarState", [this] { m_bar.Disable(); });
  m_ribbon.Invalidate();
}

void CMainToolbar::PutHistory() noexcept {
  m_log.Write("CAddin::PutHistory\n");
  RefreshDialList();
}

void CMainToolbar::RefreshDialList() noexcept {
  GuardCall(m_log, "dial box list", [this] { m_bar.ShowDialList(); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::PutCallFromCellButton() noexcept {
  m_log.Write("CAddin::PutCallFromCellButton\n");
  GuardCall(m_log, "PutCallFromCellButton", [this] { m_bar.PutCallFromCellButton(); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::PutCallerList() noexcept {
  GuardCall(m_log, "PutCallerList", [this] { m_bar.PutCallerList(); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::PutSpeedDialButton() noexcept {
  m_log.Write("CAddin::PutSpeedDialButton\n");
  GuardCall(m_log, "PutSpeedDialButton", [this] { m_bar.PutSpeedDialButton(); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::DisableOtherCellItems(int cell) noexcept {
  GuardCall(m_log, "call from cell menu", [&] { m_bar.DisableOtherCells(cell); });
}

void CMainToolbar::SetDialText(std::wstring_view text) noexcept {
  GuardCall(m_log, "dial box", [&] { m_bar.SetDialText(text); });
  m_ribbon.InvalidateOnce();
}

void CMainToolbar::ReleaseRibbon() noexcept {
  m_ribbon.Release();
  m_pictures.Release();
}

}  // namespace quor
