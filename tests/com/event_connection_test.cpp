#include "com/event_connection.h"

#include <gtest/gtest.h>

#include <functional>

#include "module/module.h"
#include "tests/toolbar/test_owner.h"

namespace quor {
namespace {

constexpr IID kEvents = {0x12345678, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

// A source with one connection point, both in one object.
class CSource final : public IConnectionPointContainer, public IConnectionPoint {
 public:
  HRESULT find = S_OK;
  HRESULT advise = S_OK;
  HRESULT unadvise = S_OK;
  std::function<void()> whileAdvising;
  IDispatch* sink = nullptr;  // with a reference, as in Outlook
  ULONG references = 1;

  void Raise(DISPID event) {
    DISPPARAMS none = {};
    sink->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IConnectionPointContainer || iid == IID_IUnknown
                  ? static_cast<IConnectionPointContainer*>(this)
                  : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
    *point = nullptr;
    if (find != S_OK || iid != kEvents) return find;
    *point = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Advise(IUnknown* unknown, DWORD* cookie) override {
    if (whileAdvising) whileAdvising();
    if (FAILED(advise)) return advise;
    *cookie = 7;
    return unknown->QueryInterface(kEvents, reinterpret_cast<void**>(&sink));
  }
  STDMETHODIMP Unadvise(DWORD cookie) override {
    EXPECT_EQ(cookie, 7u);
    if (SUCCEEDED(unadvise)) ReleaseSink();
    return unadvise;
  }
  STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
  void ReleaseSink() {
    if (IDispatch* held = std::exchange(sink, nullptr)) held->Release();
  }
};

class EventConnection : public testing::Test, protected ILogWriter {
 protected:
  EventConnection() { m_log.SetEnabled(true); }
  // In every case nothing of the source is held and no sink is left.
  void TearDown() override {
    m_connection.Unadvise();
    m_source.ReleaseSink();
    EXPECT_EQ(m_source.references, 1u);
    EXPECT_EQ(ModuleLockCount(), 0);
  }
  void WriteLine(std::string_view line) noexcept override { m_lines += line; }
  IUnknown* Source() { return static_cast<IConnectionPointContainer*>(&m_source); }
  HRESULT Advise() {
    return m_connection.Advise(Source(), kEvents, [this](DISPID event, const CEventArguments&) {
      m_events.push_back(event);
      if (m_handler) m_handler();
    });
  }

  std::string m_lines;
  CDiagnosticLog m_log{*this};
  CTestOwner m_owner;
  CSource m_source;
  std::vector<DISPID> m_events;
  std::function<void()> m_handler;
  CEventConnection m_connection{m_owner, m_log, "items"};
};

TEST_F(EventConnection, HandsOnEventsUntilItIsUnadvised) {
  ASSERT_EQ(Advise(), S_OK);
  EXPECT_EQ(Advise(), E_FAIL) << "advised already";
  m_source.Raise(0xF001);
  m_handler = [] { throw 1; };
  m_source.Raise(0xF002);
  EXPECT_EQ(m_events, (std::vector<DISPID>{0xF001, 0xF002}));
  EXPECT_EQ(m_lines, "** Error : items failed. (0x8000FFFF)\n");
  m_handler = [this] { m_connection.Unadvise(); };
  IDispatch* sink = m_source.sink;
  sink->AddRef();  // Outlook may hold it longer
  m_source.Raise(0xF003);
  DISPPARAMS none = {};
  EXPECT_EQ(sink->Invoke(0xF004, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            S_OK);
  sink->Release();
  EXPECT_EQ(m_events.size(), 3u) << "none after Unadvise";
}

TEST_F(EventConnection, AFailedAdviseHoldsNothing) {
  EXPECT_EQ(m_connection.Advise(nullptr, kEvents, {}), E_POINTER);
  m_source.find = S_FALSE;  // success without a connection point
  EXPECT_EQ(Advise(), CONNECT_E_NOCONNECTION);
  m_source.find = S_OK;
  m_source.advise = CONNECT_E_ADVISELIMIT;
  EXPECT_EQ(Advise(), CONNECT_E_ADVISELIMIT);
  m_source.advise = S_OK;
  m_source.whileAdvising = [this] { m_connection.Unadvise(); };
  EXPECT_EQ(Advise(), E_ABORT);
  EXPECT_EQ(m_source.sink, nullptr) << "what ends inside Advise is undone";
  m_source.whileAdvising = [this] { m_owner.shuttingDown = true; };
  EXPECT_EQ(Advise(), E_ABORT);
  EXPECT_FALSE(m_connection.IsAdvised());
  EXPECT_EQ(m_source.references, 1u);
}

TEST_F(EventConnection, AFailedUnadviseIsLoggedAndTheSinkIsDeaf) {
  ASSERT_EQ(Advise(), S_OK);
  m_source.unadvise = CONNECT_E_NOCONNECTION;
  m_connection.Unadvise();
  EXPECT_EQ(m_lines, "** Error : items unadvise failed. (0x80040200)\n");
  EXPECT_FALSE(m_connection.IsAdvised());
  m_source.Raise(0xF001);
  EXPECT_TRUE(m_events.empty());
}

}  // namespace
}  // namespace quor
