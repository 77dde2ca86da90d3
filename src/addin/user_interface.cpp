#include "addin/user_interface.h"

#include <algorithm>
#include <utility>

#include "com/com_boundary.h"
#include "device/line_type.h"
#include "resources/resource_ids.h"
#include "text/ansi.h"
#include "text/dial_chars.h"
#include "toolbar/selected_contact.h"

namespace quor {
namespace {

// The number's dial characters. A number without any is returned unchanged, so that the dialler
// refuses it with its message.
std::wstring DialChars(std::wstring_view number) {
  std::string written = AnsiFromWide(number);
  std::wstring dialled = WideFromAnsi(FilterDialChars(written));
  return dialled.empty() ? std::wstring(number) : dialled;
}

}  // namespace

CUserInterface::CUserInterface(CTelephone& telephone, COutlookSession& session, CSettings& settings,
                               CUserDialogs& dialogs, IMessageQueue& queue,
                               const CResourceLoader& resources, IEventOwner& owner,
                               CDiagnosticLog& log) noexcept
    : m_telephone(telephone),
      m_session(session),
      m_settings(settings),
      m_dialogs(dialogs),
      m_queue(queue),
      m_resources(resources),
      m_log(log),
      m_contactWindows(*this, *this, *this, resources, settings.Values().contactToolBar, owner,
                       log),
      m_toolbar(*this, *this, m_contactWindows, queue, resources, owner, log) {}

HRESULT CUserInterface::CreateMainToolbar() {
  return m_toolbar.Create(m_session.MainExplorer(), m_session.AppVersion(),
                          m_settings.Values().mainToolBar);
}

void CUserInterface::FillToolbar() {
  PutHistory();
  PutCallFromCellButton();
  m_telephone.CallerList().PutCallerList();
  PutSpeedDialButton();
}

void CUserInterface::OnListsChanged() noexcept {
  GuardCall(m_log, "lists", [this] {
    PutHistory();
    m_telephone.CallerList().PutCallerList();
    PutSpeedDialButton();
  });
}

void CUserInterface::OpenContactWindow(const CInspector& inspector) noexcept {
  m_contactWindows.Open(inspector, m_session.AppVersion());
}

bool CUserInterface::PostRefresh() noexcept {
  return m_queue.PostRequest(WindowRequest::Refresh, 0);
}

void CUserInterface::Refresh() noexcept {
  m_contactWindows.Refresh();
  m_toolbar.Ribbon().InvalidateDeferred();
}

void CUserInterface::SavePlaces() noexcept {
  m_toolbar.SavePlace(m_settings.Values().mainToolBar);
  m_contactWindows.SavePlace();
}

void CUserInterface::OnFolderSwitch() {
  m_candidates.clear();
  StoreDialText({});
  // First, because it invalidates the ribbon for everything below.
  SetToolBarState();
  SetDialText({});
  FillToolbar();
}

void CUserInterface::FollowSelection() {
  const CExplorer explorer = m_session.MainExplorer();
  const SelectedContact selected = ReadSelectedContact(explorer, m_log);
  std::vector<DialCandidate> candidates;
  for (const auto& [type, number] : selected.numbers) {
    const std::wstring kind = m_resources.Text(IDS_NUMBER_KIND + type);
    candidates.push_back({kind + L": " + number, number});
  }
  if (candidates == m_candidates) return;
  m_candidates = std::move(candidates);
  m_toolbar.RefreshDialList();
}

void CUserInterface::DisconnectMainToolbar() noexcept {
  m_toolbar.SavePlace(m_settings.Values().mainToolBar);
  m_toolbar.Disconnect();
}

void CUserInterface::ReleaseMainToolbar() noexcept {
  DisconnectMainToolbar();
  m_toolbar.ReleaseBar();
}

void CUserInterface::SetToolBarState() {
  m_toolbar.SetToolBarState();
  m_contactWindows.Redraw();
}

void CUserInterface::RedrawLineButtons() {
  m_toolbar.Redraw();
  m_contactWindows.Redraw();
}

void CUserInterface::DisableControls() {
  m_toolbar.DisableControls();
  m_contactWindows.Disable();
}

void CUserInterface::ClickLine(uint8_t lineType) {
  m_telephone.Lines().Click(lineType);
}

void CUserInterface::ClickCell(int cell) {
  if (cell >= 0 && cell < kCellCount)
    m_telephone.Lines().Click(kCell1 + static_cast<uint32_t>(cell));
}

void CUserInterface::ClickCaller(size_t entry) {
  const std::vector<CallEntry>& callers = m_settings.Values().callerLists;
  if (entry < callers.size()) DialNumber(std::wstring(callers[entry].number));
}

void CUserInterface::ClickSpeedDial(SpeedDialAction action, size_t entry) {
  if (entry >= kSpeedDialCount) return;
  const std::vector<SpeedDialEntry>& entries = m_settings.Values().speedDials;
  const SpeedDialEntry chosen = entry < entries.size() ? entries[entry] : SpeedDialEntry();
  switch (action) {
    case SpeedDialAction::Call:
      if (!chosen.number.empty()) DialNumber(chosen.number);
      break;
    case SpeedDialAction::Add:
    case SpeedDialAction::Edit:
      m_dialogs.EditSpeedDial(entry, chosen, OfferedEntry());
      break;
    case SpeedDialAction::Erase:
      m_dialogs.EraseSpeedDial(entry, chosen);
      break;
  }
}

void CUserInterface::ChangeDialBox(std::wstring_view text, int listIndex) {
  const std::optional<std::wstring> number = CandidateNumber(text);
  if (number) {
    text = *number;
    listIndex = 0;
  }
  m_telephone.Dialler().OnChangeComboBox(text, listIndex);
}

void CUserInterface::StoreDialText(std::wstring_view text) {
  const std::optional<std::wstring> number = CandidateNumber(text);
  m_telephone.Dialler().StoreBoxText(number ? *number : text);
}

// Finds the candidate by its label: the ribbon passes only the text of a picked entry.
std::optional<std::wstring> CUserInterface::CandidateNumber(std::wstring_view text) const {
  const auto picked = std::ranges::find(m_candidates, text, &DialCandidate::label);
  if (picked == m_candidates.end()) return std::nullopt;
  return DialChars(picked->number);
}

// Dials a number from a list or a contact without its punctuation. True if the number must wait for
// a click on a line button, on the ribbon.
bool CUserInterface::PickNumber(std::wstring_view number) {
  const std::wstring dialled = DialChars(number);
  if (m_telephone.Dialler().DialCall(0, dialled) || !m_telephone.State().HasRibbon()) return false;
  return NumberRefusal(AnsiFromWide(dialled)) == IDS_NONE;
}

// In the main window a waiting number is put into the dial box.
void CUserInterface::DialNumber(std::wstring_view number) {
  if (!PickNumber(number)) return;
  StoreDialText(DialChars(number));
  m_toolbar.Ribbon().InvalidateOnce();
}

bool CUserInterface::DialsAtOnce(uint8_t lineType) const {
  return m_telephone.Lines().DialsAtOnce(lineType);
}

bool CUserInterface::DialOnLine(uint8_t lineType, std::wstring_view number) {
  return m_telephone.Lines().DialOnLine(lineType, DialChars(number));
}

// The suggestion for a new speed dial entry: the selected contact, or else the last caller.
SpeedDialEntry CUserInterface::OfferedEntry() {
  const CExplorer explorer = m_session.MainExplorer();
  const SelectedContact selected = ReadSelectedContact(explorer, m_log);
  if (!selected.numbers.empty()) return {selected.fileAs, selected.numbers.front().number};
  const std::vector<CallEntry>& callers = m_settings.Values().callerLists;
  return callers.empty() ? SpeedDialEntry()
                         : SpeedDialEntry{callers.front().fileAs, callers.front().number};
}

CControlFaces CUserInterface::Faces() const {
  return CControlFaces(m_telephone.State(), m_settings.Values(), m_resources, m_candidates);
}

}  // namespace quor
