#ifndef QUOR_TESTS_WORKBENCH_OFFICE_OFFICE_FIXTURE_H
#define QUOR_TESTS_WORKBENCH_OFFICE_OFFICE_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/office/late_bound.h"
#include "workbench/office/outlook.h"

namespace quor::workbench {

class COfficeTest : public ::testing::Test {
 protected:
  COfficeTest() {
    m_outlook.LoadCards(
        "BEGIN:VCARD\nVERSION:4.0\nFN:Anna Lee\nN:Lee;Anna\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:4.0\nFN:Bob\nEND:VCARD\n");
  }
  CRemote App() { return CRemote(m_outlook.Application()); }
  CRemote Session() { return App().Object(L"GetNamespace", {CValue(L"MAPI")}); }
  CRemote Contacts() { return Session().Object(L"GetDefaultFolder", {CValue(10)}); }

  COutlook m_outlook{SessionOptions()};
};

}  // namespace quor::workbench

#endif
