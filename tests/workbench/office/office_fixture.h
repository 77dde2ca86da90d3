#ifndef QUOR_TESTS_WORKBENCH_OFFICE_OFFICE_FIXTURE_H
#define QUOR_TESTS_WORKBENCH_OFFICE_OFFICE_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/workbench/office/late_bound.h"
#include "workbench/office/outlook.h"

namespace quor::workbench {

inline std::string CardOf(const std::string& name, const std::string& more = {}) {
  return "BEGIN:VCARD\nVERSION:4.0\nFN:" + name + '\n' + more + "END:VCARD\n";
}

class COfficeTest : public ::testing::Test {
 protected:
  void Start(SessionOptions options = {}) {
    m_outlook.emplace(options);
    m_outlook->LoadCards(CardOf("Anna Lee", "N:Lee;Anna\nTEL;TYPE=home:+33 1 23\n") +
                         CardOf("Team", "KIND:group\nMEMBER:x\n") + CardOf("Bob") +
                         CardOf("Carl", "X-FOLDER:Customers/North\n") +
                         CardOf("Dora", "X-FOLDER:Friends\n"));
  }
  COutlook& Outlook() { return *m_outlook; }
  CRemote App() { return CRemote(m_outlook->Application()); }
  CRemote Session() { return App().Object(L"GetNamespace", {CValue(L"MAPI")}); }
  CRemote Folder(long id) { return Session().Object(L"GetDefaultFolder", {CValue(id)}); }
  CRemote Contacts() { return Folder(10); }

  std::optional<COutlook> m_outlook;
};

}  // namespace quor::workbench

#endif
