#include "toolbar/ribbon.h"

#include <gtest/gtest.h>

#include <olectl.h>
#include <functional>

#include "tests/com_double.h"
#include "tests/toolbar/bar_stage.h"
#include "workbench/ribbon/ribbon_objects.h"

namespace quor {
namespace {

struct CNoContacts final : IContactRibbon {
  std::wstring NumberOf(IDispatch*, int) override {
    if (whileAsked) whileAsked();
    return {};
  }
  ContactNumber PickedNumber(IDispatch*) override { return {}; }
  void DialContact(IDispatch*, int) override {}
  bool IsContactWindow(IDispatch*) override { return false; }
  void ClickLine(IDispatch*, uint8_t) override {}

  std::function<void()> whileAsked;  // runs inside a callback that pumps messages
};

struct CCountedPosts final : IMessageQueue {
  bool PostDeviceEvent(DeviceEvent, uint8_t) noexcept override { return false; }
  bool PostRequest(WindowRequest request, uint32_t) noexcept override {
    refreshes += request == WindowRequest::Refresh;
    return true;
  }
  int refreshes = 0;
};

// The part of Office's ribbon object that is called.
class CRibbonCounter final : public CDispatchDouble {
 public:
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    if (std::wstring(names[0]) != L"Invalidate") return DISP_E_UNKNOWNNAME;
    *ids = 1;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    ++invalidations;
    return fails ? E_FAIL : S_OK;
  }

  int invalidations = 0;
  bool fails = false;
};

class Ribbon : public testing::Test, public CBarStage {
 protected:
  using Control = workbench::CModelPtr<workbench::CRibbonControl>;

  Control ControlOf(const wchar_t* id) {
    return workbench::MakeObject<workbench::CRibbonControl>(
        model, id, L"", workbench::CModelPtr<workbench::CAutomation>(bars));
  }
  std::wstring Label(IDispatch* control) {
    BSTR label = nullptr;
    EXPECT_EQ(m_ribbon.GetLabel(control, &label), S_OK);
    return TextFromBstr(_bstr_t(label, false));
  }
  std::wstring Label(const wchar_t* id) { return Label(ControlOf(id).get()); }
  IDispatchPtr Image(const wchar_t* id) {
    IDispatch* picture = nullptr;
    EXPECT_EQ(m_ribbon.GetImage(ControlOf(id).get(), &picture), S_OK);
    return {picture, false};
  }

  CNoContacts m_contacts;
  CCountedPosts m_queue;
  CRibbon m_ribbon{*this, actions, m_contacts, m_queue, pictures, log};
};

TEST_F(Ribbon, NeedsAPlaceForItsAnswer) {
  const Control line = ControlOf(L"MailCustomButtonLine1");
  EXPECT_EQ(m_ribbon.GetLabel(line.get(), nullptr), E_POINTER);
  EXPECT_EQ(m_ribbon.GetImage(line.get(), nullptr), E_POINTER);
  EXPECT_EQ(m_ribbon.GetItemCount(line.get(), nullptr), E_POINTER);
}

TEST_F(Ribbon, PicturesAreBitmapsAndMadeOnce) {
  for (const wchar_t* id :
       {L"MailCustomButtonLine1", L"MailCustomButtonLine2", L"MailComboDial",
        L"MailCustomMenuCallFromCell", L"MailCustomMenuCallerList", L"MailCustomMenuSpeedDial",
        L"MailCustomButtonOption", L"ContactGroup"}) {
    IPicture* picture = nullptr;
    const IDispatchPtr image = Image(id);
    ASSERT_TRUE(image != nullptr) << id;
    ASSERT_EQ(image->QueryInterface(IID_IPicture, reinterpret_cast<void**>(&picture)), S_OK);
    short type = 0;
    OLE_HANDLE handle = 0;
    picture->get_Type(&type);
    picture->get_Handle(&handle);
    picture->Release();
    BITMAP bitmap = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(static_cast<ULONG_PTR>(handle)), sizeof bitmap, &bitmap);
    EXPECT_EQ(type, PICTYPE_BITMAP);
    EXPECT_EQ(bitmap.bmBitsPixel, 32);
    EXPECT_GE(bitmap.bmWidth, 16);
    EXPECT_EQ(bitmap.bmWidth, bitmap.bmHeight);
  }
  EXPECT_TRUE(Image(L"MailCustomButtonLine1") ==
              Image(L"NotesCustomButtonLine1").GetInterfacePtr());
  pictures.Release();
  EXPECT_TRUE(Image(L"MailCustomButtonLine1") != nullptr);
  EXPECT_TRUE(Image(L"MailCell0") == nullptr);
}

TEST_F(Ribbon, InvalidatesEveryRibbonOnceUntilOfficeHasAsked) {
  CRibbonCounter explorer;
  CRibbonCounter contact;
  explorer.fails = true;  // the other ribbon is still invalidated
  for (IDispatch* ribbon : {static_cast<IDispatch*>(&explorer), static_cast<IDispatch*>(&explorer),
                            static_cast<IDispatch*>(nullptr)}) {
    EXPECT_EQ(m_ribbon.Load(ribbon, RibbonWindow::Explorer), S_OK);
  }
  EXPECT_EQ(m_ribbon.Load(&contact, RibbonWindow::Contact), S_OK);
  m_ribbon.Invalidate();
  m_ribbon.InvalidateOnce();
  EXPECT_EQ(explorer.invalidations, 1);
  EXPECT_EQ(contact.invalidations, 1);
  Label(L"MailCell0");
  m_ribbon.InvalidateContactsOnce();
  m_ribbon.InvalidateContactsOnce();
  EXPECT_EQ(contact.invalidations, 2);
  EXPECT_EQ(explorer.invalidations, 1);

  // A change inside a callback is deferred to its end, also for nested callbacks.
  m_contacts.whileAsked = [&] {
    m_contacts.whileAsked = [&] { m_ribbon.Invalidate(); };
    Label(L"MenuHome");
    m_ribbon.InvalidateDeferred();
  };
  Label(L"MenuHome");
  EXPECT_EQ(m_queue.refreshes, 1);
  EXPECT_EQ(explorer.invalidations, 1);
  m_ribbon.InvalidateDeferred();
  m_ribbon.InvalidateDeferred();
  EXPECT_EQ(explorer.invalidations, 2);
  EXPECT_EQ(contact.invalidations, 3);

  m_ribbon.Release();
  EXPECT_EQ(explorer.references, 1u);
  EXPECT_EQ(contact.references, 1u);
  m_ribbon.Invalidate();
  EXPECT_EQ(contact.invalidations, 3);
}

}  // namespace
}  // namespace quor
