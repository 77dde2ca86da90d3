#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/workbench/office/late_bound.h"
#include "workbench/ribbon/ribbon_view.h"

namespace quor::workbench {
namespace {

// An add-in's callback object: names from a map, and a record of every call.
class CCallbacks final : public IDispatch {
 public:
  using Answer = std::function<CValue(const DISPPARAMS&)>;

  // Ids are assigned in this order.
  void Set(const wchar_t* name, Answer answer) { m_answers.emplace_back(name, std::move(answer)); }
  std::vector<std::wstring> called;  // "GetLabel One"
  HRESULT code = S_OK;
  ULONG References() const noexcept { return m_references; }
  size_t CallsOf(const std::wstring& call) const {
    return static_cast<size_t>(std::count(called.begin(), called.end(), call));
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
  STDMETHODIMP_(ULONG) Release() override { return --m_references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    for (size_t i = 0; i < m_answers.size(); ++i) {
      if (m_answers[i].first != names[0]) continue;
      ids[0] = static_cast<DISPID>(i) + 1;
      return S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    const auto& [name, answer] = m_answers.at(static_cast<size_t>(id) - 1);
    if (flags != DISPATCH_METHOD) return DISP_E_MEMBERNOTFOUND;
    IDispatch* first = V_DISPATCH(&parameters->rgvarg[parameters->cArgs - 1]);
    called.push_back(name + (name == L"OnLoad" ? L"" : L' ' + CRemote(first).Text(L"Id")));
    CValue value = answer ? answer(*parameters) : CValue();
    if (result != nullptr) *result = value.Detach();
    return code;
  }

 private:
  std::vector<std::pair<std::wstring, Answer>> m_answers;
  ULONG m_references = 1;
};

const wchar_t kDocument[] =
    LR"(<customUI xmlns="http://schemas.microsoft.com/office/2006/01/customui" onLoad="OnLoad">
<ribbon><tabs><tab idMso="TabMail"><group id="Group">
<comboBox id="Dial" getLabel="GetLabel" getItemCount="GetItemCount" getItemLabel="GetItemLabel"
 getText="GetText" onChange="OnChange"/>
<button id="One" tag="the tag" getLabel="GetLabel" getEnabled="GetEnabled" getImage="GetImage"
 onAction="OnAction"/>
<menu id="Menu" label="Menu" getEnabled="GetEnabled">
<button id="Item" getLabel="GetLabel" getVisible="GetVisible" onAction="OnAction"/></menu>
</group></tab><tab idMso="TabTasks"><group id="Other"><button id="Far" onAction="OnAction"/>
</group></tab></tabs></ribbon></customUI>)";

class Ribbon : public testing::Test {
 protected:
  Ribbon() {
    CoInitialize(nullptr);
    m_callbacks.Set(L"OnLoad", [this](const DISPPARAMS& arguments) {
      m_ribbonUi = CRemote(V_DISPATCH(&arguments.rgvarg[0]));
      return CValue();
    });
    m_callbacks.Set(L"GetLabel", [this](const DISPPARAMS&) {
      if (m_duringLabel) m_duringLabel();
      return m_label;
    });
    m_callbacks.Set(L"GetEnabled", [this](const DISPPARAMS&) { return m_enabled; });
    m_callbacks.Set(L"GetVisible", [this](const DISPPARAMS&) { return m_visible; });
    m_callbacks.Set(L"GetImage", [this](const DISPPARAMS&) { return m_image; });
    m_callbacks.Set(L"GetText", [](const DISPPARAMS&) { return CValue(L"text"); });
    m_callbacks.Set(L"GetItemCount", [this](const DISPPARAMS&) { return m_count; });
    m_callbacks.Set(L"GetItemLabel", [](const DISPPARAMS& arguments) {
      return CValue(L"item " + std::to_wstring(V_I4(&arguments.rgvarg[0])));
    });
    m_callbacks.Set(L"OnChange", [this](const DISPPARAMS& arguments) {
      m_changedTo = WideFromBstr(V_BSTR(&arguments.rgvarg[0]));
      return CValue();
    });
    m_callbacks.Set(L"OnAction", nullptr);
  }

  ~Ribbon() override { CoUninitialize(); }

  void Load() {
    ASSERT_TRUE(m_host.Load(&m_callbacks, kDocument));
    m_view = m_host.OpenView({});
  }
  ControlFace Face(const std::wstring& id) {
    const std::vector<std::wstring> path = {id};
    const std::vector<ControlFace> faces = m_view->ControlFaces();
    const ControlFace* face = FindFace(faces, path);
    return face != nullptr ? *face : ControlFace();
  }
  void Click(const std::wstring& id) { m_view->Click(std::vector<std::wstring>{id}); }

  CModel m_model;
  CCallbacks m_callbacks;
  CRemote m_ribbonUi;
  std::function<void()> m_duringLabel;
  CValue m_label{L"label"};
  CValue m_enabled{true};
  CValue m_visible{true};
  CValue m_image{static_cast<IDispatch*>(nullptr)};
  CValue m_count{2};
  std::wstring m_changedTo;
  CRibbonHost m_host{m_model, RibbonWindow::Explorer};
  std::shared_ptr<CRibbonView> m_view;
};

TEST_F(Ribbon, ABadDocumentIsDroppedAsAWhole) {
  // Each changes one thing in a valid document.
  const std::pair<const wchar_t*, const wchar_t*> faults[] = {
      {L"</customUI>", L""},                // not well-formed
      {L"customui\"", L"customui2\""},      // another namespace
      {L"onLoad", L"onload"},               // an attribute that does not exist
      {L"id=\"Item\"", L"id=\"One\""},      // a duplicate id
      {L"id=\"Item\"", L""},                // no id
      {L"tag=\"the tag\"", L"label=\"\""},  // an empty text
      {L"<menu id=\"Menu\" label=\"Menu\"", L"<menu id=\"Menu\" size=\"small\""},
      {L"tag=\"the tag\"", L"label=\"Both\""},  // label and getLabel
      {L"TabTasks", L"TabTsaks"},               // no such built-in tab
      {L"<group id=\"Other\"", L"<group id=\"Other\" insertBeforeMso=\"GroupMailNew\""},
  };
  const std::wstring good = kDocument;
  for (const auto& [from, to] : faults) {
    std::wstring bad = good;
    bad.replace(bad.find(from), std::wstring_view(from).size(), to);
    EXPECT_FALSE(m_host.Load(&m_callbacks, bad)) << Utf8FromWide(to);
  }
  EXPECT_EQ(m_host.Messages().size(), std::size(faults));
  EXPECT_TRUE(m_callbacks.called.empty());
  EXPECT_EQ(m_callbacks.References(), 1u);
}

TEST_F(Ribbon, ValuesAreAskedOnceUntilInvalidated) {
  Load();
  EXPECT_EQ(m_view->Redraw(), 9u);
  EXPECT_EQ(m_view->Redraw(), 0u);
  EXPECT_EQ(m_callbacks.CallsOf(L"GetLabel Item"), 0u);  // its menu is closed
  m_ribbonUi.Call(L"InvalidateControl", {L"One"});
  EXPECT_EQ(m_view->Redraw(), 3u);
  EXPECT_EQ(m_callbacks.CallsOf(L"GetLabel One"), 2u);
  EXPECT_EQ(m_callbacks.CallsOf(L"GetLabel Dial"), 1u);
  m_ribbonUi.Call(L"Invalidate");
  EXPECT_EQ(m_view->Redraw(), 9u);
  EXPECT_EQ(m_host.Figures().invalidations, 2u);
}

TEST_F(Ribbon, WrongAnswersAreReportedAndReplaced) {
  Load();
  m_label = CValue(7);
  m_enabled = CValue(L"yes");
  m_count = CValue(1001);
  const ControlFace face = Face(L"One");
  EXPECT_EQ(face.caption, L"");
  EXPECT_TRUE(face.enabled);
  EXPECT_TRUE(Face(L"Dial").entries.empty());
  const std::vector<std::string>& messages = m_host.Messages();
  const auto said = [&messages](const char* text) {
    return std::any_of(messages.begin(), messages.end(), [text](const std::string& one) {
      return one.find(text) != std::string::npos;
    });
  };
  EXPECT_TRUE(said("GetLabel for One returned type 3 instead of a text"));
  EXPECT_TRUE(said("GetEnabled for One returned type 8 instead of a Boolean"));
  EXPECT_TRUE(said("GetItemCount for Dial returned 1001 items"));
  m_callbacks.code = E_FAIL;
  m_ribbonUi.Call(L"Invalidate");
  m_view->Redraw();
  EXPECT_TRUE(said("GetLabel for Dial failed with 0x80004005"));
}

TEST_F(Ribbon, AMissingCallbackIsReported) {
  CCallbacks nothing;
  CRibbonHost host(m_model, RibbonWindow::Explorer);
  ASSERT_TRUE(host.Load(&nothing, kDocument));
  EXPECT_EQ(host.Messages().front(), "callback OnLoad for customUI is missing");
}

TEST_F(Ribbon, UsersClickWhatTheyCanReach) {
  Load();
  Click(L"One");
  Click(L"Item");
  EXPECT_EQ(m_callbacks.CallsOf(L"OnAction One"), 1u);
  EXPECT_EQ(m_callbacks.CallsOf(L"OnAction Item"), 1u);
  EXPECT_THROW(Click(L"Far"), CUserActionError);
  EXPECT_TRUE(m_view->SelectTab(L"TabTasks"));
  EXPECT_NO_THROW(Click(L"Far"));
  m_view->SelectTab(L"TabMail");
  m_visible = CValue(false);
  m_ribbonUi.Call(L"Invalidate");
  EXPECT_THROW(Click(L"Item"), CUserActionError);
  m_visible = CValue(true);
  m_enabled = CValue(false);
  m_ribbonUi.Call(L"Invalidate");
  EXPECT_THROW(Click(L"One"), CUserActionError);
  EXPECT_THROW(Click(L"Item"), CUserActionError);  // its menu is disabled
}

TEST_F(Ribbon, InvalidatingInsideACallbackIsReported) {
  Load();
  m_duringLabel = [this] { m_ribbonUi.Call(L"Invalidate"); };
  m_view->Redraw();
  ASSERT_FALSE(m_host.Messages().empty());
  EXPECT_EQ(m_host.Messages().front(), "the ribbon was invalidated from inside a callback");
}

TEST_F(Ribbon, AfterUnloadingNothingOfTheAddInIsHeld) {
  Load();
  m_view->Redraw();
  m_host.Unload();
  EXPECT_EQ(m_callbacks.References(), 1u);
  EXPECT_TRUE(m_view->ControlFaces().empty());
  EXPECT_TRUE(m_model.IsHeldFromOutside("RibbonUI"));
  m_ribbonUi.Call(L"Invalidate");
  EXPECT_EQ(CRemote::lastException, E_FAIL);
  m_ribbonUi = CRemote();
  EXPECT_FALSE(m_model.IsHeldFromOutside("RibbonUI"));
}

}  // namespace
}  // namespace quor::workbench
