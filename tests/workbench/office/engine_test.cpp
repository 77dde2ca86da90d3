// Accounting, faults, hooks, the observer and the rules of connection points.

#include <string>
#include <vector>

#include "tests/workbench/office/office_fixture.h"
#include "workbench/host/worker_thread.h"

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const IID kFoldersEventsId = PublishedInterface(L"FoldersEvents");
const IID kItemsEventsId = PublishedInterface(L"ItemsEvents");

class CEngineTest : public COfficeTest {};

TEST_F(CEngineTest, TellsWhatIsHeldFromOutsideAndOnlyThat) {
  Start();
  Outlook().OpenExplorer();
  Outlook().OpenInspector("Bob");
  EXPECT_THAT(Outlook().Held(), IsEmpty());
  {
    const CRemote items = Contacts().Object(L"Items");
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the second reference
    const CRemote again = items;
    const CRemote contact = items.Object(L"Item", {CValue(3)});
    EXPECT_THAT(Outlook().Held(), ElementsAre("ContactItem Bob 1", "Items Contacts 2"));
    EXPECT_TRUE(Outlook().Model().IsHeldFromOutside("Items"));
  }
  EXPECT_THAT(Outlook().Held(), IsEmpty());
  EXPECT_THAT(Outlook().Model().Misuses(), IsEmpty());
}

TEST_F(CEngineTest, NoticesUseAfterReleaseAndAnotherThread) {
  Start();
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
  EXPECT_THAT(Outlook().Model().Misuses(),
              ElementsAre("Items called on another thread", "Items used after its last release",
                          "Items used after its last release"));
}

TEST_F(CEngineTest, FailsTheChosenCalls) {
  Start();
  CModel& model = Outlook().Model();
  const CRemote folder = Contacts();
  const auto codes = [&folder](int calls) {
    std::vector<HRESULT> seen;
    for (int i = 0; i < calls; ++i) {
      folder.Invoke(0x3001, DISPATCH_PROPERTYGET, {});
      seen.push_back(FAILED(CRemote::lastCode) ? CRemote::lastException : S_OK);
    }
    return seen;
  };
  model.AddFault({"_mapifolder.NAME", 2, 3, E_ACCESSDENIED});
  EXPECT_THAT(codes(4), ElementsAre(S_OK, E_ACCESSDENIED, E_ACCESSDENIED, S_OK));
  model.AddFault({"*", 3, 3, E_OUTOFMEMORY});
  EXPECT_THAT(codes(4), ElementsAre(S_OK, S_OK, E_OUTOFMEMORY, S_OK));
  const int number = model.AddFault({"MAPIFolder.*", 1, 0, E_FAIL});
  EXPECT_THAT(codes(2), ElementsAre(E_FAIL, E_FAIL));
  model.Withdraw(number);
  EXPECT_THAT(codes(1), ElementsAre(S_OK));
}

TEST_F(CEngineTest, ConnectionPointsKeepTheRules) {
  Start();
  CRemote items = Contacts().Object(L"Items");
  CTestSink sink(kItemsEventsId);
  CTestSink stranger(kFoldersEventsId);
  DWORD cookie = 0;
  EXPECT_EQ(Advise(items, kFoldersEventsId, stranger, cookie), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(Advise(items, kItemsEventsId, stranger, cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  EXPECT_THAT(Outlook().Sinks(), ElementsAre("Items Contacts ItemsEvents 1"));
  EXPECT_EQ(Unadvise(items, kItemsEventsId, cookie + 1), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(Unadvise(items, kItemsEventsId, cookie), S_OK);
  EXPECT_EQ(sink.references, 1u);
  ASSERT_EQ(Advise(items, kItemsEventsId, sink, cookie), S_OK);
  EXPECT_EQ(sink.references, 2u);
  items = CRemote();  // releases the source and so its events
  EXPECT_EQ(sink.references, 1u);
  Outlook().DeleteContact("Bob");
  EXPECT_THAT(sink.heard, IsEmpty());
}

TEST_F(CEngineTest, SinksMayLeaveDuringAnEvent) {
  Start();
  const CRemote items = Contacts().Object(L"Items");
  CTestSink sinks[] = {CTestSink(kItemsEventsId), CTestSink(kItemsEventsId)};
  DWORD cookies[2] = {};
  for (int i = 0; i < 2; ++i)
    ASSERT_EQ(Advise(items, kItemsEventsId, sinks[i], cookies[i]), S_OK);
  sinks[0].during = [&](const DISPPARAMS&) {
    Unadvise(items, kItemsEventsId, cookies[1]);
    Unadvise(items, kItemsEventsId, cookies[0]);
  };
  Outlook().DeleteContact("Bob");
  EXPECT_THAT(sinks[0].heard, ElementsAre("F003"));
  EXPECT_THAT(sinks[1].heard, IsEmpty());
}

}  // namespace
}  // namespace quor::workbench
