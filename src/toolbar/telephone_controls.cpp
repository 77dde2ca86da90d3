#include "toolbar/telephone_controls.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "telephone/telephone_state.h"
#include "toolbar/telephone_bar.h"

namespace quor {

CTelephoneControls::CTelephoneControls(const IFaceSource& source, IToolbarActions& actions,
                                       IMessageQueue& queue, Configuration& configuration,
                                       const CResourceLoader& resources, IEventOwner& owner,
                                       CDiagnosticLog& log) noexcept
    : m_queue(queue),
      m_place(configuration.mainToolBar),
      m_resources(resources),
      m_log(log),
      m_pictures(resources),
      m_contactWindows(source, actions, *this, m_pictures, configuration.contactToolBar, owner,
                       log),
      m_bar(source, actions, m_pictures, owner, log),
      m_ribbon(source, actions, m_contactWindows, queue, m_pictures, log) {}

HRESULT CTelephoneControls::CreateBar(const CExplorer& explorer, int32_t appVersion) noexcept {
  if (appVersion >= kFirstRibbonVersion) return S_OK;
  try {
    const CCommandBars bars(explorer.CommandBars());
    // A bar left by a crash may have its name in another language. It must go, because its controls
    // have our tags and would be found instead of the new ones.
    for (const std::wstring& name : m_resources.TextInEveryLanguage(IDS_PRODUCT_NAME))
      DeleteStaleBar(bars, name);
    m_bar.Create(bars, m_resources.Text(IDS_PRODUCT_NAME), m_place,
                 appVersion >= kFirstPictureVersion);
    return S_OK;
  } catch (const _com_error& error) {
    // The caller logs this failure.
    return FAILED(error.Error()) ? error.Error() : E_FAIL;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

void CTelephoneControls::SetToolBarState() noexcept {
  m_log.Write("CAddin::SetToolBarState\n");
  m_ribbon.Invalidate();
  GuardCall(m_log, "SetToolBarState", [this] { m_bar.Redraw(); });
  m_contactWindows.Redraw();
}

void CTelephoneControls::RedrawControls() noexcept {
  GuardCall(m_log, "line buttons", [this] { m_bar.Redraw(); });
  m_ribbon.InvalidateOnce();
  m_contactWindows.Redraw();
}

void CTelephoneControls::DisableControls() noexcept {
  GuardCall(m_log, "SetBarState", [this] { m_bar.DisableControls(); });
  m_ribbon.Invalidate();
  m_contactWindows.DisableControls();
}

void CTelephoneControls::PutHistory() noexcept {
  m_log.Write("CAddin::PutHistory\n");
  ShowDialList();
}

void CTelephoneControls::ShowDialList() noexcept {
  GuardCall(m_log, "dial box list", [this] { m_bar.ShowDialList(); });
  m_ribbon.InvalidateOnce();
}

void CTelephoneControls::PutCallFromCellButton() noexcept {
  m_log.Write("CAddin::PutCallFromCellButton\n");
  GuardCall(m_log, "PutCallFromCellButton", [this] { m_bar.PutCallFromCellButton(); });
  m_ribbon.InvalidateOnce();
}

void CTelephoneControls::PutCallerList() noexcept {
  GuardCall(m_log, "PutCallerList", [this] { m_bar.PutCallerList(); });
  m_ribbon.InvalidateOnce();
}

void CTelephoneControls::PutSpeedDialButton() noexcept {
  m_log.Write("CAddin::PutSpeedDialButton\n");
  GuardCall(m_log, "PutSpeedDialButton", [this] { m_bar.PutSpeedDialButton(); });
  m_ribbon.InvalidateOnce();
}

void CTelephoneControls::DisableOtherCellItems(int cell) noexcept {
  GuardCall(m_log, "call from cell menu", [&] { m_bar.DisableOtherCellItems(cell); });
}

void CTelephoneControls::SetDialText(std::wstring_view text) noexcept {
  GuardCall(m_log, "dial box", [&] { m_bar.SetDialText(text); });
  m_ribbon.InvalidateOnce();
}

void CTelephoneControls::Refresh() noexcept {
  m_contactWindows.Refresh();
  m_ribbon.InvalidateDeferred();
}

void CTelephoneControls::SavePlaces() noexcept {
  m_bar.SavePlace(m_place);
  m_contactWindows.SavePlace();
}

void CTelephoneControls::DisconnectBar() noexcept {
  m_bar.SavePlace(m_place);
  m_bar.Unadvise();
}

void CTelephoneControls::ReleaseBar() noexcept {
  DisconnectBar();
  m_bar.Release();
}

void CTelephoneControls::ReleaseRibbon() noexcept {
  m_ribbon.Release();
  m_pictures.Release();
}

}  // namespace quor
