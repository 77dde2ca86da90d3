#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "tests/workbench/office/late_bound.h"
#include "workbench/ribbon/ribbon_view.h"

namespace quor::workbench {
namespace {

// An add-in's callbacks with their answers; records every call: "GetLabel One".
class CCallbacks final : public CDispatchDouble {
 public:
  std::map<std::wstring, CValue> answers = {
      {L"OnLoad", CValue()},         {L"GetLabel", CValue(L"label")},
      {L"GetEnabled", CValue(true)}, {L"GetVisible", CValue(true)},
      {L"GetItemCount", CValue(2)},  {L"GetItemLabel", CValue(L"item")},
      {L"OnAction", CValue()}};
  HRESULT code = S_OK;
  std::function<void()> duringLabel;
  std::multiset<std::wstring> called;
  CRemote ribbonUi;

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const auto found = answers.find(names[0]);
    if (found == answers.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(std::distance(answers.begin(), found)) + 1;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    const auto& [name, answer] = *std::next(answers.begin(), id - 1);
    const CRemote first(V_DISPATCH(&parameters->rgvarg[parameters->cArgs - 1]));
    if (name == L"OnLoad") {
      ribbonUi = first;
    } else {
      called.insert(name + L' ' + first.Text(L"Id"));
    }
    if (name == L"GetLabel" && duringLabel) duringLabel();
    if (result != nullptr) *result = CValue(answer).Detach();
    return code;
  }
};

const wchar_t kDocument[] =
    LR"(<customUI xmlns="http://schemas.microsoft.com/office/2006/01/customui" onLoad="OnLoad">
<ribbon><tabs><tab idMso="TabMail"><group id="Group">
<comboBox id="Dial" getLabel="GetLabel" getItemCount="GetItemCount" getItemLabel="GetItemLabel"/>
<button id="One" tag="the tag" getLabel="GetLabel" getEnabled="GetEnabled"
 onAction="OnAction"/>
<menu id="Menu" label="Menu" getEnabled="GetEnabled">
<button id="Item" getLabel="GetLabel" getVisible="GetVisible" onAction="OnAction"/></menu>
</group></tab><tab idMso="TabTasks"><group id="Other"><button id="Far" onAction="OnAction"/>
</group></tab></tabs></ribbon></customUI>)";

class Ribbon : public testing::Test {
 protected:
  Ribbon() { CoInitialize(nullptr); }
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
  EXPECT_EQ(m_model.Misuses().size(), std::size(faults));
  EXPECT_TRUE(m_callbacks.called.empty());
  EXPECT_EQ(m_callbacks.references, 1u);
}

TEST_F(Ribbon, ValuesAreAskedOnceUntilInvalidated) {
  Load();
  EXPECT_EQ(m_view->Redraw(), 7u);
  EXPECT_EQ(m_view->Redraw(), 0u);
  EXPECT_EQ(m_callbacks.called.count(L"GetLabel Item"), 0u);  // its menu is closed
  m_callbacks.ribbonUi.Call(L"InvalidateControl", {L"One"});
  EXPECT_EQ(m_view->Redraw(), 2u);
  EXPECT_EQ(m_callbacks.called.count(L"GetLabel One"), 2u);
  EXPECT_EQ(m_callbacks.called.count(L"GetLabel Dial"), 1u);
  m_callbacks.ribbonUi.Call(L"Invalidate");
  EXPECT_EQ(m_view->Redraw(), 7u);
  EXPECT_EQ(m_host.Figures().invalidations, 2u);
}

TEST_F(Ribbon, WrongAnswersAreReportedAndReplaced) {
  m_callbacks.answers.erase(L"GetVisible");
  Load();
  m_callbacks.answers[L"GetLabel"] = CValue(7);
  m_callbacks.answers[L"GetEnabled"] = CValue(L"yes");
  m_callbacks.answers[L"GetItemCount"] = CValue(1001);
  const ControlFace face = Face(L"One");
  EXPECT_EQ(face.caption, L"");
  EXPECT_TRUE(face.enabled);
  EXPECT_TRUE(Face(L"Dial").entries.empty());
  const std::vector<std::string>& messages = m_model.Misuses();
  const auto said = [&messages](const char* text) {
    return std::any_of(messages.begin(), messages.end(), [text](const std::string& one) {
      return one.find(text) != std::string::npos;
    });
  };
  EXPECT_TRUE(said("GetLabel for One returned type 3 instead of a text"));
  EXPECT_TRUE(said("GetEnabled for One returned type 8 instead of a Boolean"));
  EXPECT_TRUE(said("GetItemCount for Dial returned 1001 items"));
  EXPECT_EQ(Face(L"Item").caption, L"");
  EXPECT_TRUE(said("callback GetVisible for Item is missing"));
  m_callbacks.code = E_FAIL;
  m_callbacks.ribbonUi.Call(L"Invalidate");
  m_view->Redraw();
  EXPECT_TRUE(said("GetLabel for Dial failed with 0x80004005"));
  m_callbacks.duringLabel = [this] { m_callbacks.ribbonUi.Call(L"Invalidate"); };
  m_callbacks.ribbonUi.Call(L"Invalidate");
  m_view->Redraw();
  EXPECT_TRUE(said("the ribbon was invalidated from inside a callback"));
}

TEST_F(Ribbon, UsersClickWhatTheyCanReach) {
  Load();
  Click(L"One");
  Click(L"Item");
  EXPECT_EQ(m_callbacks.called.count(L"OnAction One"), 1u);
  EXPECT_EQ(m_callbacks.called.count(L"OnAction Item"), 1u);
  EXPECT_THROW(Click(L"Far"), CUserActionError);
  EXPECT_TRUE(m_view->SelectTab(L"TabTasks"));
  EXPECT_NO_THROW(Click(L"Far"));
  m_view->SelectTab(L"TabMail");
  for (const wchar_t* property : {L"GetVisible", L"GetEnabled"}) {  // Item's own, or its menu's
    m_callbacks.answers[property] = CValue(false);
    m_callbacks.ribbonUi.Call(L"Invalidate");
    EXPECT_THROW(Click(L"Item"), CUserActionError);
    m_callbacks.answers[property] = CValue(true);
  }
}

}  // namespace
}  // namespace quor::workbench
