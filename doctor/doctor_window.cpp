#include "doctor/doctor_window.h"

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <optional>

#include "doctor/file_facts.h"
#include "doctor/gather.h"
#include "doctor/repair.h"
#include "doctor/report.h"
#include "doctor/report_file.h"
#include "doctor/resource_ids.h"

namespace quor::doctor {
namespace {

struct WindowTexts {
  const wchar_t* repair;
  const wchar_t* again;
  const wchar_t* report;
  const wchar_t* close;
  const wchar_t* ask;
  char yes;
  const wchar_t* repaired;
  const wchar_t* notRepaired;
  const wchar_t* notSaved;
};

constexpr std::array<WindowTexts, 3> kTexts = {{
    {L"&Repair", L"&Look again", L"&Save report...", L"Close",
     L"This switches the plug-in on again in Outlook and takes it off Outlook's lists of disabled "
     L"add-ins. Nothing else is changed. Close Outlook first. Go on?",
     'y', L"Done. Start Outlook again. What stood there before is kept in:\n",
     L"Nothing was changed: the copy of what stands there could not be written.",
     L"The report could not be saved there. Choose another folder."},
    {L"&Réparer", L"&Examiner de nouveau", L"Enre&gistrer un rapport...", L"Fermer",
     L"Le complément sera réactivé dans Outlook et retiré des listes de compléments désactivés. "
     L"Rien "
     L"d'autre ne change. Fermez d'abord Outlook. Continuer ?",
     'o', L"C'est fait. Redémarrez Outlook. L'état précédent est conservé dans :\n",
     L"Rien n'a été changé : la copie de l'état actuel n'a pas pu être écrite.",
     L"Le rapport n'a pas pu être enregistré à cet endroit. Choisissez un autre dossier."},
    {L"&Reparar", L"&Mirar de nuevo", L"&Guardar informe...", L"Cerrar",
     L"El complemento se activará de nuevo en Outlook y saldrá de las listas de complementos "
     L"deshabilitados. Nada más cambia. Cierre antes Outlook. ¿Continuar?",
     's', L"Hecho. Inicie Outlook de nuevo. Lo que había antes queda en:\n",
     L"No se ha cambiado nada: no se pudo escribir la copia de lo que hay.",
     L"El informe no se pudo guardar ahí. Elija otra carpeta."},
}};

constexpr wchar_t kTitle[] = L"Telephone Plug-in Doctor";

class CDoctorWindow {
 public:
  explicit CDoctorWindow(Language language) : m_language(language) {}

  int Show() {
    const INT_PTR result = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_DOCTOR),
                                           nullptr, Procedure, reinterpret_cast<LPARAM>(this));
    return result < 0 ? 2 : static_cast<int>(result);
  }

 private:
  const WindowTexts& Texts() const { return kTexts[static_cast<size_t>(m_language)]; }

  void Prepare(HWND window) {
    m_window = window;
    SetWindowTextW(window, kTitle);
    SetIcon(ICON_BIG, SM_CXICON, SM_CYICON);
    SetIcon(ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    SetDlgItemTextW(window, IDC_REPAIR, Texts().repair);
    SetDlgItemTextW(window, IDC_AGAIN, Texts().again);
    SetDlgItemTextW(window, IDC_REPORT, Texts().report);
    SetDlgItemTextW(window, IDCANCEL, Texts().close);
    RECT whole;
    GetWindowRect(window, &whole);
    m_smallest = {whole.right - whole.left, whole.bottom - whole.top};
    m_client = ClientSize();
    Look();
  }

  // LR_SHARED: Windows destroys the icon with the process.
  void SetIcon(WPARAM kind, int widthMetric, int heightMetric) const {
    HANDLE icon =
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_TELEPHONE), IMAGE_ICON,
                   GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), LR_SHARED);
    SendMessageW(m_window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
  }

  POINT ClientSize() const {
    RECT client;
    GetClientRect(m_window, &client);
    return {client.right, client.bottom};
  }

  void Adjust(int id, POINT move, POINT grow) const {
    const HWND control = GetDlgItem(m_window, id);
    RECT place;
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
    MoveWindow(control, place.left + move.x, place.top + move.y, place.right - place.left + grow.x,
               place.bottom - place.top + grow.y, FALSE);
  }

  // The text fills the window; the buttons stay at its lower edge.
  void OnSize() {
    const POINT size = ClientSize();
    const POINT growth = {size.x - m_client.x, size.y - m_client.y};
    m_client = size;
    Adjust(IDC_FINDINGS, {0, 0}, growth);
    for (const int id : {IDC_REPAIR, IDC_AGAIN, IDC_REPORT}) {
      Adjust(id, {0, growth.y}, {0, 0});
    }
    Adjust(IDCANCEL, growth, {0, 0});
    RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  }

  void Look() {
    m_facts = Gather();
    m_findings = Examine(m_facts);
    std::string text;
    for (const char c : TextReport(m_facts, m_findings, m_language)) {
      if (c == '\n') text += '\r';
      text += c;
    }
    SetDlgItemTextW(m_window, IDC_FINDINGS, Wide(text).c_str());
    const bool repairable = std::ranges::any_of(
        m_findings, [](const Finding& finding) { return IsRepairable(finding.kind); });
    EnableWindow(GetDlgItem(m_window, IDC_REPAIR), repairable);
  }

  void RepairAll() {
    if (!AskToRepair(m_window, m_language)) return;
    const std::optional<std::wstring> backup = Repair(m_facts);
    MessageBoxW(m_window, backup ? (Texts().repaired + *backup).c_str() : Texts().notRepaired,
                kTitle, MB_OK | (backup ? MB_ICONINFORMATION : MB_ICONWARNING));
    Look();
  }

  void SaveReport() {
    wchar_t path[MAX_PATH] = L"telephone-report.txt";
    wchar_t documents[MAX_PATH] = L"";
    SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, documents);
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = m_window;
    question.lpstrFile = path;
    question.nMaxFile = MAX_PATH;
    question.lpstrFilter = L"*.txt\0*.txt\0";
    question.lpstrInitialDir = documents;
    question.lpstrDefExt = L"txt";
    question.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetSaveFileNameW(&question)) return;
    if (!WriteReportFile(path, m_facts, m_findings)) {
      MessageBoxW(m_window, Texts().notSaved, kTitle, MB_OK | MB_ICONWARNING);
    }
  }

  int ExitCode() const {
    const bool well =
        std::ranges::all_of(m_findings, [](const Finding& found) { return IsNote(found.kind); });
    return well ? 0 : 1;
  }

  void OnCommand(int id) {
    if (id == IDC_REPAIR) RepairAll();
    if (id == IDC_AGAIN) Look();
    if (id == IDC_REPORT) SaveReport();
    if (id == IDCANCEL) EndDialog(m_window, ExitCode());
  }

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, second);
        reinterpret_cast<CDoctorWindow*>(second)->Prepare(window);
        // Do not focus the text: Windows would select it.
        SetFocus(GetDlgItem(window, IDCANCEL));
        return FALSE;
      }
      auto* self = reinterpret_cast<CDoctorWindow*>(GetWindowLongPtrW(window, DWLP_USER));
      if (self == nullptr) return FALSE;
      return self->OnMessage(message, first, second);
    } catch (const std::exception&) {
      EndDialog(window, 2);  // out of memory
    }
    return FALSE;
  }

  BOOL OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
      case WM_COMMAND:
        OnCommand(LOWORD(first));
        return TRUE;
      case WM_SIZE:
        if (first != SIZE_MINIMIZED) OnSize();
        return TRUE;
      case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = m_smallest;
        return TRUE;
      default:
        return FALSE;
    }
  }

  Language m_language;
  HWND m_window = nullptr;
  POINT m_smallest = {};  // size of the whole window
  POINT m_client = {};    // size of the client area as the controls fill it
  Facts m_facts;
  std::vector<Finding> m_findings;
};

}  // namespace

bool AskToRepair(HWND owner, Language language) {
  return MessageBoxW(owner, RepairQuestion(language).c_str(), kTitle,
                     MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

std::wstring RepairQuestion(Language language) {
  return kTexts[static_cast<size_t>(language)].ask;
}

char YesKey(Language language) {
  return kTexts[static_cast<size_t>(language)].yes;
}

int ShowDoctorWindow(Language language) {
  return CDoctorWindow(language).Show();
}

}  // namespace quor::doctor
