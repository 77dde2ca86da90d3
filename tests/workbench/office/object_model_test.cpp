// Outlook's objects as an add-in sees them.

#include <string>
#include <vector>

#include "tests/workbench/office/office_fixture.h"

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;

const IID kExplorerEventsId = PublishedInterface(L"ExplorerEvents");
const IID kInspectorEventsId = PublishedInterface(L"InspectorEvents");
const IID kInspectorsEventsId = PublishedInterface(L"InspectorsEvents");
const IID kItemsEventsId = PublishedInterface(L"ItemsEvents");

class CObjectModelTest : public COfficeTest {
 protected:
  struct Answer {
    HRESULT code = S_OK;
    UINT refused = 99;
    bool operator==(const Answer&) const = default;
  };
  // Arguments as they stand in rgvarg: the last one first, before it the named ones.
  Answer Invoke(const CRemote& object, DISPID id, std::vector<VARIANT> arguments,
                std::vector<DISPID> names = {}) {
    DISPPARAMS parameters = {arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                             static_cast<UINT>(names.size())};
    VARIANT result;
    VariantInit(&result);
    Answer answer;
    answer.code = object.Raw()->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result,
                                       nullptr, &answer.refused);
    VariantClear(&result);
    return answer;
  }
};

TEST_F(CObjectModelTest, ArgumentsAreArrangedAsATypeLibraryDoes) {
  constexpr DISPID kCreateItem = 0x010A;
  constexpr DISPID kCompareEntryIds = 0xFBFC;
  constexpr DISPID kGetItemFromId = 0x2109;
  Start();
  const CRemote app = App();
  const CRemote session = Session();
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

  EXPECT_EQ(Invoke(app, kCreateItem, {reference}), (Answer{S_OK}));
  EXPECT_THAT(Outlook().Model().Misuses(), ElementsAre());
  EXPECT_EQ(Invoke(app, kCreateItem, {text.Get()}), (Answer{S_OK}));
  EXPECT_EQ(Invoke(app, kCreateItem, {word.Get()}), (Answer{DISP_E_TYPEMISMATCH, 0}));
  EXPECT_EQ(Invoke(app, kCreateItem, {missing}), (Answer{DISP_E_PARAMNOTOPTIONAL, 0}));
  EXPECT_THAT(Outlook().Model().Misuses(),
              ElementsAre("Application.CreateItem with a converted argument",
                          "Application.CreateItem refused with 0x80020005",
                          "Application.CreateItem refused with 0x8002000F"));

  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get(), text.Get()}, {1, 0}), (Answer{S_OK}));
  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get(), text.Get()}, {1}), (Answer{S_OK}));
  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get(), text.Get()}, {1, 1}),
            (Answer{DISP_E_PARAMNOTFOUND, 1}));
  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get(), text.Get()}, {2, 0}),
            (Answer{DISP_E_PARAMNOTFOUND, 0}));
  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get(), object.Get()}),
            (Answer{DISP_E_TYPEMISMATCH, 1}));
  EXPECT_EQ(Invoke(session, kCompareEntryIds, {text.Get()}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Invoke(session, kGetItemFromId, {number.Get(), text.Get()}, {1}).code,
            DISP_E_EXCEPTION);  // not found
  EXPECT_EQ(Invoke(session, kGetItemFromId, {text.Get(), text.Get()}, {1, 2}),
            (Answer{DISP_E_PARAMNOTFOUND, 1}));

  LPOLESTR names[] = {const_cast<LPOLESTR>(L"compareentryids"),
                      const_cast<LPOLESTR>(L"SecondEntryID"), const_cast<LPOLESTR>(L"Third")};
  DISPID ids[3] = {};
  EXPECT_EQ(session.Raw()->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
  EXPECT_EQ(session.Raw()->GetIDsOfNames(IID_NULL, names, 3, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_THAT(ids, ElementsAre(kCompareEntryIds, 1, DISPID_UNKNOWN));
}

TEST_F(CObjectModelTest, OnlyPublishedMembersHaveAnId) {
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
