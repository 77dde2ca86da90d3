#include "toolbar/contact_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/toolbar/noted_actions.h"
#include "tests/toolbar/test_owner.h"
#include "text/ansi.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/office/outlook.h"

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Inspector = workbench::CModelPtr<workbench::CInspector>;

constexpr int kVersion = 11;
constexpr wchar_t kMenu[] = L"Dial number";
constexpr char kCards[] =
    "BEGIN:VCARD\nVERSION:4.0\nFN:Anna Lee\nTEL;TYPE=work:+33 (1) 23\nTEL;TYPE=home:55-5\n"
    "END:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nFN:Bob\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nFN:Team\nKIND:group\nMEMBER:x\nEND:VCARD\n";

// Gives every window its own command bars; the controls of all windows share tags.
class CBarsFace final : public workbench::IOutlookFace {
 public:
  IDispatch* CommandBarsOf(workbench::CWindowObject& inspector) override {
    auto& bars = m_bars[&inspector];
    if (!bars) {
      bars = workbench::MakeObject<workbench::CCommandBars>(*model, m_registry,
                                                            workbench::CCommandBars::Kind::Shown);
    }
    return bars.get();
  }
  void OnClosed(workbench::CWindowObject& inspector) override {
    if (const auto bars = m_bars.find(&inspector); bars != m_bars.end()) {
      bars->second->Close();
      m_bars.erase(bars);
    }
  }
  workbench::CModel* model = nullptr;

 private:
  std::shared_ptr<workbench::CControlRegistry> m_registry =
      std::make_shared<workbench::CControlRegistry>();
  std::map<workbench::CWindowObject*, workbench::CModelPtr<workbench::CCommandBars>> m_bars;
};

class ContactWindows : public testing::Test,
                       protected IFaceSource,
                       protected IContactRibbonDisplay,
                       protected ILogWriter {
 protected:
  ContactWindows() {
    m_log.SetEnabled(true);
    m_state.record = {1, 1, 1, 1, 0, 1, 1};
    m_face.model = &m_outlook.Model();
    m_outlook.LoadCards(kCards);
    m_newInspector.Advise(m_application.Inspectors().Get(), kInspectorsEvents,
                          [this](DISPID, const CEventArguments& arguments) {
                            m_windows.Open(QueryObject<CInspector>(arguments.Object(0)), m_version);
                          });
    m_heldBefore = m_outlook.Held();
  }

  CControlFaces Faces() const override { return {m_state, m_configuration, m_resources}; }
  std::wstring DialText() const override { return {}; }
  void InvalidateContactRibbons() noexcept override {}
  bool PostRefresh() noexcept override { return true; }
  void WriteLine(std::string_view line) noexcept override { m_lines += line; }

  Inspector Open(const char* contact) { return m_outlook.OpenInspector(contact); }
  workbench::CCommandBars& Bars(const Inspector& window) {
    return static_cast<workbench::CCommandBars&>(*m_face.CommandBarsOf(*window));
  }
  workbench::ControlFace Face(const Inspector& window, std::vector<std::wstring> path) {
    const auto faces = Bars(window).ControlFaces();
    const auto* found = workbench::FindFace(faces, path);
    return found != nullptr ? *found : workbench::ControlFace{};
  }
  std::vector<std::wstring> Numbers(const Inspector& window) {
    std::vector<std::wstring> captions;
    for (const auto& item : Face(window, {kMenu}).items) {
      if (item.visible) captions.push_back(item.caption);
    }
    return captions;
  }
  void Click(const Inspector& window, std::vector<std::wstring> path) { Bars(window).Click(path); }
  // Whether no more is held than before the first window.
  bool NothingHeld() {
    return m_outlook.Held() == m_heldBefore && m_outlook.Model().Misuses().empty() &&
           m_outlook.Sinks().size() == 1;
  }

  TelephoneState m_state{};
  Configuration m_configuration;
  CResourceLoader m_resources{GetModuleHandleW(nullptr)};
  CPictureLoader m_pictures{m_resources};
  std::string m_lines;
  CDiagnosticLog m_log{*this};
  CNotedActions m_actions;
  CBarsFace m_face;
  workbench::COutlook m_outlook{{.version = kVersion}, m_face};
  COutlookApplication m_application{IDispatchPtr(m_outlook.Application())};
  CTestOwner m_owner;
  int m_version = kVersion;
  CContactWindows m_windows{*this,   m_actions, *this, m_pictures, m_configuration.contactToolBar,
                            m_owner, m_log};
  CEventConnection m_newInspector{m_owner, m_log, "new inspector"};
  std::vector<std::string> m_heldBefore;
};

TEST_F(ContactWindows, ReadANumberThatTheUserChanges) {
  const Inspector anna = Open("Anna Lee");
  m_outlook.ChangeContact("Anna Lee", "HomeTelephoneNumber", "777");
  Click(anna, {kMenu, L"Home: 55-5"});
  EXPECT_THAT(m_actions.Take(), ElementsAre("dial 777"));
  m_outlook.Session().ActivateWindow(*anna);
  m_outlook.ChangeContact("Anna Lee", "HomeTelephoneNumber", "");
  Click(anna, {kMenu, L"Home: 777"});
  EXPECT_THAT(m_actions.Take(), IsEmpty());
  // A distribution list has no controls.
  EXPECT_THAT(Bars(Open("Team")).ControlFaces(), IsEmpty());
}

// What fails when the window is announced is repeated when it is activated or redrawn.
TEST_F(ContactWindows, SurviveEveryFailure) {
  workbench::CModel& model = m_outlook.Model();
  for (uint64_t call = 1;; ++call) {
    const uint64_t before = model.FaultsFired();
    m_lines.clear();
    model.AddFault({"*", call, call, E_FAIL});
    const Inspector anna = Open("Anna Lee");
    if (model.FaultsFired() != before) {
      m_windows.Redraw();
      const bool ignored = m_lines.starts_with("** Error : contact window failed.") ||
                           m_lines.starts_with("Failed advising to InspectorEvents\n");
      EXPECT_EQ(Numbers(anna).size(), ignored ? 0u : 2u) << call << ' ' << m_lines;
    }
    m_windows.Redraw();
    m_windows.DisableControls();
    m_outlook.CloseInspector(*anna);
    model.WithdrawAll();
    ASSERT_TRUE(NothingHeld()) << call;
    if (model.FaultsFired() == before) break;
    ASSERT_LT(call, 2000u);
  }
}

TEST_F(ContactWindows, MayCloseInTheMiddleOfAnyCall) {
  for (const auto& [version, all] :
       {std::pair(11, true), std::pair(11, false), std::pair(12, true), std::pair(12, false)}) {
    m_version = version;
    for (uint64_t call = 1;; ++call) {
      bool closed = false;
      m_outlook.Model().AddHook({"*", call, [&, all = all] {
                                   closed = true;
                                   if (all) return m_windows.CloseAll();
                                   for (const auto& window : m_outlook.OpenInspectors())
                                     m_outlook.CloseInspector(*window);
                                 }});
      const Inspector anna = Open("Anna Lee");
      m_outlook.ChangeContact("Anna Lee", "HomeTelephoneNumber", std::to_string(call));
      m_windows.Refresh();
      m_windows.Redraw();
      m_windows.DisableControls();
      if (anna && anna->IsOpen()) m_outlook.Session().ActivateWindow(*anna);
      m_outlook.Model().WithdrawAll();
      if (anna && anna->IsOpen()) m_outlook.CloseInspector(*anna);
      m_windows.CloseAll();
      ASSERT_TRUE(NothingHeld()) << call;
      if (!closed) break;
      ASSERT_LT(call, 2000u);
    }
  }
}

}  // namespace
}  // namespace quor
