#ifndef QUOR_DIALOGS_ABOUT_DLG_H
#define QUOR_DIALOGS_ABOUT_DLG_H

#include <cstdint>
#include <string>

#include "device/link_health.h"
#include "device/usbxpress_library.h"
#include "dialogs/modeless_dialog.h"

namespace quor {

// What the about box tells.
struct AboutFacts {
  std::wstring version;
  std::wstring build;  // the revision of the sources
  bool baseIsConnected = false;
  UsbLibraryState library = UsbLibraryState::Loaded;
  int missingOrdinal = 0;  // of an incomplete library
  LinkHealth link;
  std::wstring connectedSince;  // date and time; empty without a base
  bool contactsAreBeingRead = false;
  bool contactsWereLeftOut = false;  // the start-up scan ended at its limit
  int32_t contacts = 0;              // read at start-up
  int64_t items = 0;                 // in the contact folders, of whatever type
  std::wstring configurationPath;    // empty when this session has no file
  bool configurationIsUnreadable = false;
  bool configurationIsUnsaved = false;
  bool profileIsOutsideCodePage = false;
  std::wstring logPath;  // today's file, whether it exists or not
  bool logIsOn = false;
};

// Knows what the about box tells of the add-in's other parts.
class IAboutSource {
 public:
  // Fills in the library, the contacts and whether the configuration file can be read.
  virtual void Describe(AboutFacts& facts) const = 0;

 protected:
  ~IAboutSource() = default;
};

// What the user can do there. Called inside a boundary: throwing is allowed.
class IAboutActions {
 public:
  virtual void SwitchLog(bool on) = 0;
  virtual void OpenLogFolder() = 0;

 protected:
  ~IAboutActions() = default;
};

// The about box: which product this is, where it keeps its files, and the switch of its log, which
// works at once.
class CAboutDlg final : public CModelessDialog {
 public:
  // All must outlive the window.
  CAboutDlg(const DialogHost& host, IAboutActions& actions) noexcept;

  // Shows the window in front of `owner`, a top-level window; null when there is none.
  void Open(HWND owner, const AboutFacts& facts) noexcept;

 private:
  void Fill(const AboutFacts& facts);
  std::wstring LinkText(const AboutFacts& facts) const;
  std::wstring BaseText(const AboutFacts& facts) const;
  std::wstring ContactsText(const AboutFacts& facts) const;
  std::wstring ConfigurationText(const AboutFacts& facts) const;
  std::wstring Architecture() const;
  void OnButton(int id) override;

  IAboutActions& m_actions;
};

}  // namespace quor

#endif
