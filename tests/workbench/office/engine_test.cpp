// What the stand-in reports as misuse, and the rules of connection points.

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
