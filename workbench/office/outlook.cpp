#include "workbench/office/outlook.h"

#include <iterator>
#include <map>
#include <utility>

namespace quor::workbench {
namespace {

StoredItemPtr ItemFromCard(const Card& card) {
  auto item = std::make_shared<StoredItem>();
  const auto set = [&item](DISPID property, const std::string& text) {
    if (!text.empty()) item->fields.Set(property, WideFromUtf8(text));
  };
  set(field::kBody, card.note);
  if (card.group) {
    item->type = ItemType::DistributionList;
    set(field::kSubject, card.fullName);
    return item;
  }
  set(field::kFullName, card.fullName);
  set(field::kSubject, card.fullName);
  set(field::kFirstName, card.firstName);
  set(field::kLastName, card.lastName);
  set(field::kCompanyName, card.company);
  set(field::kFileAs, card.fileAs);
  for (const CardNumber& number : card.numbers) {
    set(TextPropertyByName(WideFromUtf8(number.property)), number.number);
  }
  return item;
}

std::string CardPath(const Card& card) {
  if (card.folder.starts_with('/')) return card.folder;
  return card.folder.empty() ? "Contacts" : "Contacts/" + card.folder;
}

// File As, full name, subject or entry id.
bool IsCalled(const StoredItem& item, const std::wstring& name) {
  if (item.entryId == name) return true;
  for (const DISPID property : {field::kFileAs, field::kFullName, field::kSubject}) {
    if (const std::wstring* text = item.fields.Find(property); text != nullptr && *text == name) {
      return true;
    }
  }
  return false;
}

StoredItemPtr FindBelow(const FolderNode& folder, const std::wstring& name) {
  for (const StoredItemPtr& item : folder.items) {
    if (IsCalled(*item, name)) return item;
  }
  for (const auto& child : folder.folders) {
    if (StoredItemPtr item = FindBelow(*child, name)) return item;
  }
  return nullptr;
}

// "Contacts/North" becomes "Contacts" and "North".
std::pair<std::string, std::string> SplitPath(const std::string& path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {std::string(), path};
  return {path.substr(0, slash), path.substr(slash + 1)};
}

std::string Line(const std::string& type, const std::string& name, const std::string& rest) {
  return name.empty() ? type + ' ' + rest : type + ' ' + name + ' ' + rest;
}

}  // namespace

COutlook::COutlook(const SessionOptions& options) : COutlook(options, m_noFace) {}

COutlook::COutlook(const SessionOptions& options, IOutlookFace& face)
    : m_session(std::make_unique<CSession>(m_model, options, face)) {}

COutlook::~COutlook() = default;

CModelPtr<CComAddIn> COutlook::AddAddIn(ComAddInInfo info, std::function<bool()> isConnected) {
  return m_session->ComAddIns().AddAddIn(std::move(info), std::move(isConnected));
}

void COutlook::AddCards(const std::string& folder, std::string_view vcards) {
  ReadInto(&folder, vcards, true);
}

void COutlook::ReadInto(const std::string* folder, std::string_view vcards, bool events) {
  std::map<FolderNode*, std::vector<StoredItemPtr>> items;
  std::vector<FolderNode*> order;
  for (const Card& card : ReadCards(vcards)) {
    FolderNode& target = folder != nullptr
                             ? FindFolder(*folder)
                             : Mailbox().MakePath(WideFromUtf8(CardPath(card)), ItemType::Contact);
    if (items[&target].empty()) order.push_back(&target);
    items[&target].push_back(ItemFromCard(card));
  }
  for (FolderNode* target : order) {
    if (events) {
      m_session->AddItems(*target, items[target]);
      continue;
    }
    for (const StoredItemPtr& item : items[target])
      Mailbox().InsertItem(*target, item);
  }
}

StoredItemPtr COutlook::FindItem(const std::string& item) {
  const auto [folder, name] = SplitPath(item);
  if (!folder.empty()) {
    try {
      const FolderNode& node = FindFolder(folder);
      for (const StoredItemPtr& one : node.items) {
        if (IsCalled(*one, WideFromUtf8(name))) return one;
      }
    } catch (const CMailboxError&) {
      // Not an error: a name may contain a slash.
    }
  }
  for (const auto& store : Mailbox().Stores()) {
    if (StoredItemPtr found = FindBelow(*store->top, WideFromUtf8(item))) return found;
  }
  throw CMailboxError("no item " + item);
}

FolderNode& COutlook::FindFolder(const std::string& path) {
  return Mailbox().FolderByPath(WideFromUtf8(path));
}

void COutlook::ChangeContact(const std::string& item, const std::string& property,
                             const std::string& value) {
  const CModelPtr<CItem> object = m_session->ItemObject(FindItem(item));
  object->SetText(TextPropertyByName(WideFromUtf8(property)), WideFromUtf8(value));
  object->SaveChanges();
}

std::vector<std::string> COutlook::Journal() const {
  SYSTEMTIME local;
  GetLocalTime(&local);
  double now = 0;
  SystemTimeToVariantTime(&local, &now);
  std::vector<std::string> entries;
  for (const StoredItemPtr& item : m_session->Mailbox().DefaultFolder(11)->items) {
    const CFieldSet& fields = item->fields;
    std::wstring line = fields.Get(field::kSubject) + L"; " + fields.Get(field::kJournalType) +
                        L"; " + fields.Get(field::kJournalDuration) + L" min; ";
    for (const std::wstring& link : item->links)
      line += link + L"; ";
    std::wstring body = fields.Get(field::kBody);
    for (size_t end = body.find(L"\r\n"); end != std::wstring::npos; end = body.find(L"\r\n"))
      body.replace(end, 2, end + 2 == body.size() ? L"" : L" | ");
    const double age = now - _wtof(fields.Get(field::kJournalStart).c_str());
    entries.push_back(Utf8FromWide(line + body + (age > -0.01 && age < 1 ? L"" : L"; not today")));
  }
  return entries;
}

void COutlook::DeleteContact(const std::string& item) {
  m_session->DeleteItems({FindItem(item)});
}

void COutlook::MoveContact(const std::string& item, const std::string& folder) {
  const StoredItemPtr found = FindItem(item);
  m_session->MoveItem(found, FindFolder(folder));
}

FolderNode& COutlook::AddFolder(const std::string& path, ItemType type) {
  const auto [parent, name] = SplitPath(path);
  FolderNode& above = parent.empty() ? *Mailbox().DefaultStore().top : FindFolder(parent);
  return m_session->AddFolder(above, WideFromUtf8(name), type);
}

void COutlook::MoveFolder(const std::string& path, const std::string& parent) {
  m_session->MoveFolder(FindFolder(path), FindFolder(parent));
}

CModelPtr<CExplorer> COutlook::OpenExplorer(const std::string& folder) {
  CModelPtr<CExplorer> explorer = m_session->OpenExplorer(FindFolder(folder));
  m_session->ShowExplorer(*explorer);
  return explorer;
}

CExplorer& COutlook::ActiveExplorer() {
  const CModelPtr<CExplorer> explorer = m_session->ActiveExplorer();
  if (!explorer) throw CMailboxError("no explorer is open");
  return *explorer;  // the session holds it
}

void COutlook::CloseExplorer() {
  const CModelPtr<CExplorer> explorer = m_session->ActiveExplorer();
  if (explorer) m_session->CloseExplorer(*explorer);
}

void COutlook::CloseFirstExplorer() {
  if (m_session->ExplorerWindows().empty()) return;
  const CModelPtr<CExplorer> explorer = m_session->ExplorerWindows().front();
  m_session->CloseExplorer(*explorer);
}

bool COutlook::SwitchFolder(const std::string& folder) {
  return ActiveExplorer().SwitchFolder(FindFolder(folder));
}

void COutlook::Select(const std::vector<std::string>& items) {
  std::vector<StoredItemPtr> found;
  found.reserve(items.size());
  for (const std::string& item : items)
    found.push_back(FindItem(item));
  ActiveExplorer().Select(std::move(found));
}

CModelPtr<CInspector> COutlook::OpenInspector(const std::string& item) {
  const CModelPtr<CItem> object = m_session->ItemObject(FindItem(item));
  const CModelPtr<CInspector> inspector = m_session->InspectorFor(*object);
  return m_session->ShowInspector(*inspector) ? inspector : CModelPtr<CInspector>();
}

CModelPtr<CInspector> COutlook::FindInspector(const std::string& item) {
  for (const auto& inspector : OpenInspectors()) {
    if (inspector->ObjectName() == item ||
        IsCalled(*inspector->Item()->Stored(), WideFromUtf8(item))) {
      return inspector;
    }
  }
  throw CMailboxError("no window shows " + item);
}

void COutlook::ActivateInspector(const std::string& item) {
  m_session->ActivateWindow(*FindInspector(item));
}

void COutlook::MoveInspector(const std::string& item, const std::string& next) {
  const CModelPtr<CInspector> inspector = FindInspector(item);
  m_session->MoveInspector(*inspector, *m_session->ItemObject(FindItem(next)));
}

std::vector<CModelPtr<CInspector>> COutlook::OpenInspectors() {
  return m_session->InspectorWindows();
}

std::vector<OptionsPage> COutlook::RaiseOptionsPagesAdd() {
  const CModelPtr<CPropertyPages> pages = MakeObject<CPropertyPages>(*m_session);
  m_session->Application().Fire(L"OptionsPagesAdd", {CValue(pages.get())});
  return pages->TakePages();
}

std::vector<std::string> COutlook::Held() const {
  std::vector<std::string> lines;
  for (const HeldObject& held : m_model.HeldFromOutside()) {
    lines.push_back(Line(held.type, held.name, std::to_string(held.references)));
  }
  return lines;
}

std::vector<std::string> COutlook::Sinks() const {
  std::vector<std::string> lines;
  for (const AdvisedSink& sink : m_model.AdvisedSinks()) {
    lines.push_back(Line(sink.source, sink.name, sink.events + ' ' + std::to_string(sink.count)));
  }
  return lines;
}

}  // namespace quor::workbench
