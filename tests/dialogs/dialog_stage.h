#ifndef QUOR_TESTS_DIALOGS_DIALOG_STAGE_H
#define QUOR_TESTS_DIALOGS_DIALOG_STAGE_H

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "dialogs/dialog_window.h"
#include "dialogs/options_store.h"
#include "module/diagnostic_log.h"
#include "module/module.h"
#include "resources/resource_loader.h"

namespace quor {

struct Language {
  const char* name;
  uint16_t primary;
  uint16_t sub;
};
extern const std::vector<Language> kLanguages;

struct CLogLines final : ILogWriter {
  void WriteLine(std::string_view line) noexcept override { text += line; }
  std::string text;
};

// The add-in as a dialog sees it.
struct CCountedAddin final : IUnknown {
  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  ULONG references = 1;
};

// What a dialog must hold while it calls back: the add-in and the module.
struct HeldDuringCall {
  ULONG references = 0;
  long moduleLocks = 0;
};

// A store that keeps applied values and records its calls.
struct COptionsDesk final : IOptionsStore {
  OptionValues Load() override { return stored; }
  OptionValues Reload() override { return Load(); }
  void Apply(const OptionValues& values) override {
    if (refuses) throw 1;
    stored = values;
    applied.push_back(values);
  }
  void ShowAbout(HWND owner) override { abouts.push_back(owner); }

  OptionValues stored = {kEnglish, {1, 1, 1, 1, 1, 1}};
  std::vector<OptionValues> applied;
  std::vector<HWND> abouts;
  bool refuses = false;
};

// What every dialog test needs: an add-in, this program's resources, a log, and Outlook's main
// window.
class CDialogStage {
 public:
  CDialogStage();
  ~CDialogStage();
  CDialogStage(const CDialogStage&) = delete;
  CDialogStage& operator=(const CDialogStage&) = delete;

  void Speak(const Language& language) { resources.SetLanguage(language.primary, language.sub); }
  void CloseOutlook();
  HeldDuringCall Held() const { return {addin.references, ModuleLockCount()}; }

  CCountedAddin addin;
  CResourceLoader resources;
  CLogLines lines;
  CDiagnosticLog log;
  DialogHost host{addin, resources, log};
  HWND outlook;
};

// This thread's dialogs with this caption, visible or not.
std::vector<HWND> DialogsNamed(const std::wstring& caption);
HWND VisibleDialog();
std::wstring TextOf(HWND window);
std::wstring TextOf(HWND dialog, int control);

// Finds a control of the window or of a panel inside it.
HWND FindControl(HWND window, int id);
// Selects a row of a list, as the user does.
void Choose(HWND list, int row);

// Runs a message loop like Outlook's, without IsDialogMessage, until the queue is empty.
void RunLoop();
// Sends a key to the control with the focus, as the keyboard does.
void PressKey(WPARAM key);
void PressAlt(wchar_t letter);

}  // namespace quor

#endif
