#ifndef QUOR_DIALOGS_ABOUT_DLG_H
#define QUOR_DIALOGS_ABOUT_DLG_H

#include <cstdint>
#include <string>

#include "device/link_health.h"
#include "device/usbxpress_library.h"
#include "dialogs/modeless_dialog.h"

namespace quor {

// Contents of the about box.
struct AboutFacts {
  std::wstring version;
  std::wstring build;  // revision of the sources
  bool baseIsConnected = false;
  UsbLibraryState library = UsbLibraryState::Loaded;
  int missingOrdinal = 0;  // of an incomplete library
  LinkHealth link;
  std::wstring connectedSince;  // date and time; empty if not connected
  bool contactsAreBeingRead = false;
  bool contactsWereLeftOut = false;  // the start-up scan reached its limit
  int32_t contacts = 0;              // read at start-up
  int64_t items = 0;                 // in the contact folders, of any type
  std::wstring configurationPath;    // empty if this session has no file
  bool configurationIsUnreadable = false;
  bool configurationIsUnsaved = false;
  bool profileIsOutsideCodePage = false;
  std::wstring logPath;  // today's file, whether it exists or not
  bool logIsOn = false;
};

// Gathers the facts of other parts of the add-in.
class IAboutSource {
 public:
  // Fills in the library, the contacts, and whether the configuration file can be read.
  virtual void Describe(AboutFacts& facts) const = 0;

 protected:
  ~IAboutSource() = default;
};

// The user's actions in the about box. Called inside a boundary: exceptions are allowed.
class IAboutActions {
 public:
  virtual void SwitchLog(bool on) = 0;
  virtual void OpenLogFolder() = 0;

 protected:
  ~IAboutActions() = default;
};

// The about box: shows product, versions and file paths, and switches the log on and off at once.
class CAboutDlg final : public CModelessDialog {
 public:
  // All must outlive the window.
  CAboutDlg(const DialogHost& host, IAboutActions& actions) noexcept;

  // Shows the window in front of `owner`, a top-level window or null.
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
