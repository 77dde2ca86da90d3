// Outlook's objects as an add-in sees them, what the stand-in reports as misuse, and the rules of
// connection points.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/workbench/office/late_bound.h"
#include "workbench/host/worker_thread.h"
#include "workbench/office/outlook.h"

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const IID kFoldersEventsId = PublishedInterface(L"FoldersEvents");
const IID kItemsEventsId = PublishedInterface(L"ItemsEvents");

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

TEST_F(COfficeTest, CallsThatDoNotFitAreRefusedAsATypeLibraryDoes) {
  constexpr DISPID kCreateItem = 0x010A;
  constexpr DISPID kCompareEntryIds = 0xFBFC;
  constexpr DISPID kGetItemFromId = 0x2109;
  constexpr DISPID kEntryId = 0xF01E;
  constexpr UINT kNone = 99;
  const CRemote app = App();
  const CRemote session = Session();
  const CRemote folder = Contacts();
  const CValue text(L"4");
  const CValue word(L"four");
  const CValue number(4);
  const CValue object(app.Raw());
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  VARIANT kept = number.Get();
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &kept;
  constexpr WORD kCall = DISPATCH_METHOD;
  constexpr WORD kRead = DISPATCH_PROPERTYGET;
  const VARIANT t = text.Get();
  const VARIANT n = number.Get();
  const struct {
    const CRemote& called;
    DISPID member;
    WORD flags;
    // As they stand in rgvarg: the last one first, before it the named ones.
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    HRESULT code;
    UINT refused;
  } rows[] = {
      {app, kCreateItem, kCall, {reference}, {}, S_OK, kNone},
      {app, kCreateItem, kCall, {t}, {}, S_OK, kNone},
      {app, kCreateItem, kCall, {word.Get()}, {}, DISP_E_TYPEMISMATCH, 0},
      {app, kCreateItem, kCall, {missing}, {}, DISP_E_PARAMNOTOPTIONAL, 0},
      {session, kCompareEntryIds, kCall, {t, t}, {1, 0}, S_OK, kNone},
      {session, kCompareEntryIds, kCall, {t, t}, {1}, S_OK, kNone},
      {session, kCompareEntryIds, kCall, {t, t}, {1, 1}, DISP_E_PARAMNOTFOUND, 1},
      {session, kCompareEntryIds, kCall, {t, t}, {2, 0}, DISP_E_PARAMNOTFOUND, 0},
      {session, kCompareEntryIds, kCall, {t, object.Get()}, {}, DISP_E_TYPEMISMATCH, 1},
      {session, kCompareEntryIds, kCall, {t}, {}, DISP_E_BADPARAMCOUNT, 0},
      {session, kGetItemFromId, kCall, {n, t}, {1}, DISP_E_EXCEPTION, kNone},  // no such item
      {session, kGetItemFromId, kCall, {t, t}, {1, 2}, DISP_E_PARAMNOTFOUND, 1},
      {folder, 0x7777, kRead, {}, {}, DISP_E_MEMBERNOTFOUND, kNone},
      {folder, kEntryId, kCall, {}, {}, DISP_E_MEMBERNOTFOUND, kNone},
      {folder, kEntryId, kRead, {n}, {}, DISP_E_BADPARAMCOUNT, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    std::vector<VARIANT> arguments = row.arguments;
    std::vector<DISPID> names = row.names;
    DISPPARAMS parameters = {arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                             static_cast<UINT>(names.size())};
    UINT refused = kNone;
    EXPECT_EQ(row.called.Raw()->Invoke(row.member, IID_NULL, 0, row.flags, &parameters, nullptr,
                                       nullptr, &refused),
              row.code);
    EXPECT_EQ(refused, row.refused);
  }
  const std::vector<std::string> misuses = m_outlook.Model().Misuses();
  EXPECT_THAT(std::vector(misuses.begin(), misuses.begin() + 3),
              ElementsAre("Application.CreateItem with a converted argument",
                          "Application.CreateItem refused with 0x80020005",
                          "Application.CreateItem refused with 0x8002000F"));
}

TEST_F(COfficeTest, NamesOfMembersAndArgumentsHaveIds) {
  const CRemote session = Session();
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"compareentryids"),
                      const_cast<LPOLESTR>(L"SecondEntryID"), const_cast<LPOLESTR>(L"Third")};
  DISPID ids[3] = {};
  EXPECT_EQ(session.Raw()->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
  EXPECT_EQ(session.Raw()->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_THAT(ids, ElementsAre(0xFBFC, 1, DISPID_UNKNOWN));
}

TEST_F(COfficeTest, OnlyPublishedMembersHaveAnId) {
  using enum MemberKind;
  const CMemberTable table("Type", L"MAPIFolder", nullptr,
                           {{L"Name", Put}, {L"Title", Get}, {L"Display", Get}, {L"moveto"}});
  EXPECT_THAT(table.Deviations(),
              ElementsAre("Type.Title is not published", "Type.Display is not published"));
  ASSERT_NE(table.Find(0x3001, DISPATCH_PROPERTYPUT), nullptr);
  EXPECT_EQ(table.Find(0x3001, DISPATCH_PROPERTYGET), nullptr);
  ASSERT_NE(table.FindByName(L"MoveTo"), nullptr);
  EXPECT_EQ(table.FindByName(L"MoveTo")->least, 1u);
  EXPECT_THROW(CMemberTable("Type", L"_Nothing", nullptr, {}), std::logic_error);
}

TEST_F(COfficeTest, ANewInspectorIsActivatedAfterItsEvent) {
  const IID inspectorEvents = PublishedInterface(L"InspectorEvents");
  const CRemote inspectors = App().Object(L"Inspectors");
  CTestSink all(PublishedInterface(L"InspectorsEvents"));
  CTestSink own(inspectorEvents);
  CRemote inspector;
  DWORD cookie = 0;
  ASSERT_EQ(Advise(inspectors, PublishedInterface(L"InspectorsEvents"), all, cookie), S_OK);
  all.during = [&](const DISPPARAMS& arguments) {
    inspector = CRemote(V_DISPATCH(&arguments.rgvarg[0]));
    ASSERT_EQ(Advise(inspector, inspectorEvents, own, cookie), S_OK);
  };
  ASSERT_TRUE(m_outlook.OpenInspector("Lee, Anna"));
  EXPECT_THAT(own.heard, ElementsAre("F001"));
}

TEST_F(COfficeTest, NoticesUseAfterReleaseAndAnotherThread) {
  IDispatch* items = nullptr;
  {
    const CRemote held = Contacts().Object(L"Items");
    items = held.Raw();
    HRESULT code = S_OK;
    CWorkerThread([&held, &code] {
      held.Number(L"Count");
      code = CRemote::lastCode;
    }).Join();
    EXPECT_EQ(code, RPC_E_WRONG_THREAD);
  }
  items->Release();
  UINT count = 0;
  items->GetTypeInfoCount(&count);
  DISPPARAMS none = {};
  EXPECT_EQ(
      items->Invoke(0x50, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
      CO_E_OBJNOTCONNECTED);
  EXPECT_THAT(m_outlook.Model().Misuses(),
              ElementsAre("Items called on another thread", "Items used after its last release",
                          "Items used after its last release"));
}

TEST_F(COfficeTest, ConnectionPointsKeepTheRules) {
  CRemote items = Contacts().Object(L"Items");
  CTestSink sink(kItemsEventsId);
  CTestSink stranger(kFoldersEventsId);
  DWORD cookie = 0;
  EXPECT_EQ(Advise(items, kFoldersEventsId, stranger, cookie), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(Advise(items, kItemsEventsId, stranger, cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  EXPECT_THAT(m_outlook.Sinks(), ElementsAre("Items Contacts ItemsEvents 1"));
  EXPECT_EQ(Unadvise(items, kItemsEventsId, cookie + 1), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(Unadvise(items, kItemsEventsId, cookie), S_OK);
  EXPECT_EQ(sink.references, 1u);
  ASSERT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  EXPECT_EQ(sink.references, 2u);
  items = CRemote();  // releases the source and so its events
  EXPECT_EQ(sink.references, 1u);
  m_outlook.DeleteContact("Bob");
  EXPECT_THAT(sink.heard, IsEmpty());
}

}  // namespace
}  // namespace quor::workbench
