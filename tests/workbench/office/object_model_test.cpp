// Outlook's objects as an add-in sees them.

#include <string>
#include <vector>

#include "tests/workbench/office/office_fixture.h"

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;

class CObjectModelTest : public COfficeTest {};

TEST_F(CObjectModelTest, CallsThatDoNotFitAreRefusedAsOfficeDoes) {
  Start();
  const CRemote folder = Contacts();
  folder.IdOf(L"NoSuchMember");
  EXPECT_EQ(CRemote::lastCode, DISP_E_UNKNOWNNAME);
  folder.Invoke(0x7777, DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(CRemote::lastCode, DISP_E_MEMBERNOTFOUND);
  folder.Invoke(0xF01E, DISPATCH_METHOD, {});
  EXPECT_EQ(CRemote::lastCode, DISP_E_MEMBERNOTFOUND);
  folder.Get(L"EntryID");
  EXPECT_EQ(CRemote::lastCode, S_OK);
  folder.Invoke(0xF01E, DISPATCH_PROPERTYGET, {CValue(1)});
  EXPECT_EQ(CRemote::lastCode, DISP_E_BADPARAMCOUNT);
  const CRemote items = folder.Object(L"Items");
  items.Call(L"Item", {CValue(App().Raw())});
  EXPECT_EQ(CRemote::lastCode, DISP_E_TYPEMISMATCH);
  items.Call(L"Item", {CValue(0)});
  EXPECT_EQ(CRemote::lastCode, DISP_E_EXCEPTION);
  EXPECT_EQ(CRemote::lastException, DISP_E_BADINDEX);
  const CRemote contact = items.Object(L"Item", {CValue(1)});
  for (const WORD flags : {WORD{4}, WORD{8}, WORD{12}}) {
    contact.Put(L"FullName", CValue(L"Anna Lee"), flags);
    EXPECT_EQ(CRemote::lastCode, S_OK) << flags;
  }
}

TEST_F(CObjectModelTest, CollectionsHaveTheirOwnCursors) {
  Start();
  const CRemote folders = Contacts().Object(L"Folders");
  const CRemote others = Contacts().Object(L"Folders");
  EXPECT_EQ(folders.Number(L"Count"), 2);
  EXPECT_FALSE(others.Object(L"GetPrevious"));
  EXPECT_EQ(folders.Object(L"GetLast").Text(L"Name"), L"Friends");
  EXPECT_EQ(others.Object(L"GetFirst").Text(L"Name"), L"Customers");
  EXPECT_EQ(folders.Object(L"GetPrevious").Text(L"Name"), L"Customers");
  EXPECT_FALSE(folders.Object(L"GetPrevious"));
  EXPECT_EQ(CRemote::lastCode, S_OK);
  EXPECT_EQ(others.Object(L"GetNext").Text(L"Name"), L"Friends");
  EXPECT_FALSE(others.Object(L"GetNext"));
  EXPECT_FALSE(Folder(6).Object(L"Folders").Object(L"GetLast"));
}

TEST_F(CObjectModelTest, ManyItemsAtOnceRaiseNoEvents) {
  Start();
  const CRemote items = Contacts().Object(L"Items");
  CTestSink sink(kItemsEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  std::string cards;
  for (int i = 0; i < 15; ++i)
    cards += CardOf("New " + std::to_string(i));
  Outlook().AddCards("Contacts", cards);
  EXPECT_EQ(sink.heard.size(), 15u);
  Outlook().AddCards("Contacts", cards + CardOf("New 15"));
  EXPECT_EQ(sink.heard.size(), 15u);
  EXPECT_EQ(items.Number(L"Count"), 3 + 15 + 16);
}

TEST_F(CObjectModelTest, AnInspectorComesUpInOutlooksOrder) {
  Start();
  Outlook().OpenExplorer();
  const CRemote explorer = App().Object(L"ActiveExplorer");
  const CRemote inspectors = App().Object(L"Inspectors");
  std::vector<std::string> order;
  CTestSink windows(kInspectorsEventsId);
  CTestSink main(kExplorerEventsId);
  CTestSink own(kInspectorEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(inspectors, kInspectorsEventsId, windows, cookie), S_OK);
  ASSERT_EQ(Advise(explorer, kExplorerEventsId, main, cookie), S_OK);
  CRemote inspector;
  windows.during = [&](DISPID, const DISPPARAMS& parameters) {
    inspector = CRemote(V_DISPATCH(&parameters.rgvarg[0]));
    EXPECT_EQ(inspectors.Number(L"Count"), 1);
    EXPECT_EQ(Advise(inspector, kInspectorEventsId, own, cookie), S_OK);
  };
  ASSERT_TRUE(Outlook().OpenInspector("Lee, Anna"));
  EXPECT_THAT(main.heard, ElementsAre("F006"));
  EXPECT_THAT(own.heard, ElementsAre("F001"));
  EXPECT_EQ(inspector.Object(L"CurrentItem").Text(L"FullName"), L"Anna Lee");
  EXPECT_EQ(inspector.Text(L"Caption"), L"Anna Lee - Contact");
  EXPECT_EQ(App().Object(L"ActiveWindow").Raw(), inspector.Raw());
  EXPECT_TRUE(Outlook().CloseInspector("Lee, Anna"));
  EXPECT_THAT(own.heard, ElementsAre("F001", "F008"));
  EXPECT_THAT(main.heard, ElementsAre("F006", "F001"));
  inspector.Get(L"CurrentItem");
  EXPECT_EQ(CRemote::lastCode, DISP_E_EXCEPTION);
}

}  // namespace
}  // namespace quor::workbench
