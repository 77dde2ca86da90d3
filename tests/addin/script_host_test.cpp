// The ribbon's callbacks called by a script engine that nobody here wrote: the system's VBScript.

#include <activscp.h>

#include <map>
#include <string>

#include "tests/addin/shipped_addin.h"
#include "tests/com_double.h"

namespace quor {
namespace {

constexpr CLSID kVbScript = {
    0xB54F3741, 0x5B07, 0x11CF, {0xA4, 0xB0, 0x00, 0xAA, 0x00, 0x4A, 0x55, 0xE8}};

// The host of a script: hands out its named items and counts errors.
class CScriptSite final : public CComDouble<IActiveScriptSite> {
 public:
  std::map<std::wstring, IDispatch*> items;
  int errors = 0;

  STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo**) override {
    const auto found = items.find(name);
    if (found == items.end() || mask != SCRIPTINFO_IUNKNOWN) return TYPE_E_ELEMENTNOTFOUND;
    *item = found->second;
    (*item)->AddRef();
    return S_OK;
  }
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError*) override {
    ++errors;
    return S_OK;
  }
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }
};

// What a script notes down.
class CNotes final : public CDispatchDouble {
 public:
  std::wstring text;

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    ids[0] = 1;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    VARIANT value;
    VariantInit(&value);
    if (FAILED(VariantChangeType(&value, &parameters->rgvarg[0], 0, VT_BSTR))) return E_FAIL;
    text += V_BSTR(&value);
    text += L'|';
    VariantClear(&value);
    return S_OK;
  }
};

class CScriptHostTest : public CShippedAddinTest {
 protected:
  // Runs the script with the add-in, the notes and some controls of the ribbon as named items.
  void Run(const wchar_t* script) {
    IActiveScript* engine = nullptr;
    ASSERT_EQ(CoCreateInstance(kVbScript, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                               reinterpret_cast<void**>(&engine)),
              S_OK);
    IActiveScriptParse* parse = nullptr;
    ASSERT_EQ(
        engine->QueryInterface(__uuidof(IActiveScriptParse), reinterpret_cast<void**>(&parse)),
        S_OK);
    m_site.items = {{L"addin", Callbacks()},
                    {L"notes", &m_notes},
                    {L"line1", Control(L"MailCustomButtonLine1")},
                    {L"options", Control(L"MailCustomButtonOption")},
                    {L"dialBox", Control(L"MailComboDial")},
                    {L"nobodys", Control(L"NobodysControl")}};
    EXPECT_EQ(engine->SetScriptSite(&m_site), S_OK);
    EXPECT_EQ(parse->InitNew(), S_OK);
    for (const auto& [name, item] : m_site.items)
      EXPECT_EQ(engine->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE), S_OK);
    EXPECT_EQ(engine->SetScriptState(SCRIPTSTATE_STARTED), S_OK);
    EXCEPINFO exception = {};
    parse->ParseScriptText(script, nullptr, nullptr, nullptr, 0, 0, 0, nullptr, &exception);
    engine->Close();
    parse->Release();
    engine->Release();
    EXPECT_EQ(m_site.references, 1u);
  }

  CScriptSite m_site;
  CNotes m_notes;
};

TEST_F(CScriptHostTest, ReadsFacesAndPassesArgumentsInItsOwnWays) {
  Run(LR"(notes.Add addin.GetLabel(line1)
notes.Add addin.getlabel(options)
notes.Add addin.GetEnabled(line1)
notes.Add addin.GetVisible(line1)
notes.Add addin.GetItemCount(dialBox)
Set image = addin.GetImage(nobodys)
notes.Add image Is Nothing
Set image = addin.GetImage(line1)
notes.Add image Is Nothing
Set control = dialBox
index = "1"
text = "0551"
notes.Add addin.GetItemLabel(control, index)
notes.Add addin.GetItemLabel(control, 1000000)
addin.ChangeComboBox control, text
notes.Add addin.GetTextComboBox(control)
addin.ChangeComboBox control, 5512
notes.Add addin.GetTextComboBox(control)
addin.Line1Clicked line1
addin.OptionsClicked nobodys
addin.CallerListClicked Nothing
)");
  EXPECT_EQ(m_site.errors, 0);
  EXPECT_EQ(m_notes.text, L"Call from line1|Options|0|-1|0|-1|0|||0551|5512|");
}

TEST_F(CScriptHostTest, RefusesWhatDoesNotFit) {
  for (const wchar_t* script :
       {L"addin.GetLabel", L"addin.GetLabel 5", L"addin.GetLabel line1, line1",
        L"addin.GetItemLabel dialBox, \"many\"", L"addin.NoSuchCallback line1"}) {
    m_site.errors = 0;
    Run(script);
    EXPECT_EQ(m_site.errors, 1) << script;
  }
}

}  // namespace
}  // namespace quor
