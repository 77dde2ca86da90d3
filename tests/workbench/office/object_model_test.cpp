// Outlook's objects as an add-in sees them.

#include <string>
#include <vector>

#include "tests/workbench/office/office_fixture.h"

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class CObjectModelTest : public COfficeTest {};

TEST_F(CObjectModelTest, MembersAnswerByNameAndByPublishedId) {
  const struct {
    int version;
    const wchar_t* text;
  } versions[] = {
      {11, L"11.0.0.8000"}, {12, L"12.0.0.6000"}, {14, L"14.0.0.7000"}, {16, L"16.0.0.5000"}};
  for (const auto& row : versions) {
    SessionOptions options;
    options.version = row.version;
    Start(options);
    EXPECT_EQ(App().Text(L"VERSION"), row.text);
  }
  EXPECT_EQ(App().IdOf(L"version"), 0x0116);
  EXPECT_EQ(V_VT(&App().Invoke(0x0116, DISPATCH_PROPERTYGET, {}).Get()), VT_BSTR);
  EXPECT_TRUE(App().Answers(kApplicationId));
  EXPECT_FALSE(App().Answers(kNameSpaceId));
  const CRemote contact = Contacts().Object(L"Items").Object(L"Item", {CValue(1)});
  EXPECT_TRUE(contact.Answers(kContactItemId));
  EXPECT_EQ(contact.Number(L"Class"), 40);
  for (const NumberProperty& property : kNumberProperties) {
    EXPECT_EQ(contact.IdOf(property.name), property.id) << Utf8FromWide(property.name);
  }
  EXPECT_EQ(contact.Text(L"HomeTelephoneNumber"), L"+33 1 23");
  EXPECT_EQ(contact.Text(L"FileAs"), L"Lee, Anna");
}

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

TEST_F(CObjectModelTest, ByReferenceArgumentsAndMissingOnesAreUnderstood) {
  Start();
  CValue name(L"friends");
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = const_cast<VARIANT*>(&name.Get());
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  const CRemote folders = Contacts().Object(L"Folders");
  DISPPARAMS parameters = {&reference, nullptr, 1, 0};
  EXPECT_EQ(folders.Raw()->Invoke(0x51, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                                  nullptr),
            S_OK);
  const std::wstring id = Contacts().Text(L"EntryID");
  const CRemote folder = Session().Object(L"GetFolderFromID", {CValue(id), CValue::Copy(missing)});
  EXPECT_EQ(folder.Text(L"Name"), L"Contacts");
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

TEST_F(CObjectModelTest, TheTreeEndsAtTheNameSpace) {
  SessionOptions options;
  options.mailbox.secondStore = true;
  Start(options);
  EXPECT_EQ(Session().Object(L"Folders").Number(L"Count"), 2);
  const CRemote top = Contacts().Object(L"Parent");
  EXPECT_EQ(top.Text(L"Name"), L"Personal Folders");
  EXPECT_FALSE(top.Object(L"Parent").Answers(kFolderId));
  EXPECT_TRUE(top.Object(L"Parent").Answers(kNameSpaceId));
  EXPECT_EQ(Contacts().Text(L"FolderPath"), L"\\\\Personal Folders\\Contacts");
  std::wstring id = Contacts().Text(L"EntryID");
  EXPECT_EQ(id.size(), 48u);
  CharLowerW(id.data());
  EXPECT_TRUE(Session().Object(L"GetFolderFromID", {CValue(id)}));
  const CRemote archive = Session().Object(L"Folders").Object(L"GetLast");
  EXPECT_FALSE(Session().Object(L"GetFolderFromID", {CValue(id), archive.Get(L"StoreID")}));
  EXPECT_EQ(CRemote::lastException, kNotFound);
}

TEST_F(CObjectModelTest, ANewContactGetsItsEntryIdWhenItIsSaved) {
  Start();
  const CRemote items = Contacts().Object(L"Items");
  CTestSink sink(kItemsEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  const CRemote contact = App().Object(L"CreateItem", {CValue(2)});
  contact.Put(L"FullName", CValue(L"Eva Maria Stern"));
  contact.Put(L"MobileTelephoneNumber", CValue(L"0171 5"));
  EXPECT_EQ(contact.Text(L"FileAs"), L"Stern, Eva Maria");
  EXPECT_EQ(contact.Text(L"EntryID"), L"");
  EXPECT_EQ(contact.Object(L"Parent").Text(L"Name"), L"Contacts");
  EXPECT_EQ(items.Number(L"Count"), 3);
  contact.Call(L"Save");
  const std::wstring id = contact.Text(L"EntryID");
  EXPECT_EQ(id.size(), 48u);
  EXPECT_EQ(items.Number(L"Count"), 4);
  contact.Put(L"CompanyName", CValue(L"Acme"));
  EXPECT_THAT(sink.heard, ElementsAre("F001 object"));
  contact.Call(L"Save");
  contact.Call(L"Save");
  EXPECT_THAT(sink.heard, ElementsAre("F001 object", "F002 object"));
  const CRemote same = Session().Object(L"GetItemFromID", {CValue(id)});
  EXPECT_EQ(same.Raw(), contact.Raw());
}

TEST_F(CObjectModelTest, ADeletedContactArrivesInDeletedItems) {
  Start();
  const CRemote items = Contacts().Object(L"Items");
  const CRemote deleted = Folder(3).Object(L"Items");
  CTestSink source(kItemsEventsId);
  CTestSink target(kItemsEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(items, kItemsEventsId, source, cookie), S_OK);
  ASSERT_EQ(Advise(deleted, kItemsEventsId, target, cookie), S_OK);
  const CRemote contact = items.Object(L"Item", {CValue(1)});
  const std::wstring id = contact.Text(L"EntryID");
  contact.Call(L"Delete");
  EXPECT_THAT(source.heard, ElementsAre("F003"));
  EXPECT_THAT(target.heard, ElementsAre("F001 object"));
  EXPECT_EQ(contact.Text(L"EntryID"), id);
  EXPECT_EQ(contact.Object(L"Parent").Text(L"Name"), L"Deleted Items");
  contact.Call(L"Delete");
  EXPECT_THAT(target.heard, ElementsAre("F001 object", "F003"));
  EXPECT_FALSE(Session().Object(L"GetItemFromID", {CValue(id)}));
  contact.Call(L"Save");
  EXPECT_EQ(CRemote::lastException, kObjectDeleted);
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

TEST_F(CObjectModelTest, FoldersComeGoAndMove) {
  Start();
  const CRemote folders = Contacts().Object(L"Folders");
  const CRemote deleted = Folder(3).Object(L"Folders");
  CTestSink sink(kFoldersEventsId);
  CTestSink bin(kFoldersEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(folders, kFoldersEventsId, sink, cookie), S_OK);
  ASSERT_EQ(Advise(deleted, kFoldersEventsId, bin, cookie), S_OK);
  const CRemote added = folders.Object(L"Add", {CValue(L"Suppliers")});
  EXPECT_EQ(added.Number(L"DefaultItemType"), 2);
  added.Put(L"Name", CValue(L"Makers"));
  Outlook().DeleteFolder("Contacts/Makers");
  EXPECT_THAT(sink.heard, ElementsAre("F001 object", "F002 object", "F003"));
  EXPECT_THAT(bin.heard, ElementsAre("F001 object"));
  Outlook().DeleteFolder("Deleted Items/Makers");
  EXPECT_THAT(bin.heard, ElementsAre("F001 object", "F003"));
  added.Get(L"Name");
  EXPECT_EQ(CRemote::lastException, kObjectDeleted);
  EXPECT_THROW(Outlook().MoveFolder("Contacts/Customers", "Contacts/Customers/North"),
               CMailboxError);
}

TEST_F(CObjectModelTest, AFolderSwitchCanBeCancelledAndSelectsTheFirstItem) {
  Start();
  Outlook().OpenExplorer();
  const CRemote explorer = App().Object(L"ActiveExplorer");
  CTestSink sink(kExplorerEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(explorer, kExplorerEventsId, sink, cookie), S_OK);
  sink.during = [](DISPID event, const DISPPARAMS& parameters) {
    if (event == 0xF003) *V_BOOLREF(&parameters.rgvarg[0]) = VARIANT_TRUE;
  };
  EXPECT_FALSE(Outlook().SwitchFolder("Contacts"));
  EXPECT_EQ(explorer.Object(L"CurrentFolder").Text(L"Name"), L"Inbox");
  sink.during = nullptr;
  sink.heard.clear();
  EXPECT_TRUE(Outlook().SwitchFolder("Contacts"));
  EXPECT_THAT(sink.heard, ElementsAre("F003 object ref False", "F002", "F007"));
  const CRemote selection = explorer.Object(L"Selection");
  EXPECT_EQ(selection.Object(L"Item", {CValue(1)}).Text(L"FullName"), L"Anna Lee");
  Outlook().Select({"Bob", "Team"});
  EXPECT_EQ(explorer.Object(L"Selection").Number(L"Count"), 2);
  EXPECT_EQ(selection.Number(L"Count"), 1);
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

TEST_F(CObjectModelTest, OptionsPagesArriveWithTheirTitles) {
  Start();
  CTestSink sink(kApplicationEventsId);
  DWORD cookie = 0;
  const CRemote application = App();
  ASSERT_EQ(Advise(application, kApplicationEventsId, sink, cookie), S_OK);
  sink.during = [&sink](DISPID, const DISPPARAMS& parameters) {
    const CRemote pages(V_DISPATCH(&parameters.rgvarg[0]));
    pages.Call(L"Add", {CValue(L"Some.Page"), CValue(L"One")});
    pages.Call(L"Add", {CValue(static_cast<IDispatch*>(&sink)), CValue(L"Two")});
    EXPECT_EQ(pages.Number(L"Count"), 2);
  };
  const ULONG before = sink.References();
  {
    const std::vector<OptionsPage> pages = Outlook().RaiseOptionsPagesAdd();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].progId, L"Some.Page");
    EXPECT_EQ(V_DISPATCH(&pages[1].object.Get()), &sink);
    EXPECT_EQ(pages[1].title, L"Two");
  }
  EXPECT_EQ(sink.References(), before);
}

TEST_F(CObjectModelTest, EntryIdsFollowTheChosenStyle) {
  SessionOptions options;
  options.mailbox.entryIdDigits = 140;
  options.mailbox.lowerCaseEntryIds = true;
  options.mailbox.newEntryIdOnMove = true;
  Start(options);
  const CRemote contact = Contacts().Object(L"Items").Object(L"Item", {CValue(1)});
  const std::wstring id = contact.Text(L"EntryID");
  EXPECT_EQ(id.size(), 140u);
  EXPECT_EQ(id.find_first_of(L"ABCDEF"), std::wstring::npos);
  Outlook().MoveContact("Lee, Anna", "Contacts/Friends");
  EXPECT_NE(contact.Text(L"EntryID"), id);
}

}  // namespace
}  // namespace quor::workbench
