#include "workbench/commandbars/command_bars.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/workbench/office/late_bound.h"

namespace quor::workbench {
namespace {

const IID kButtonEventsId = PublishedInterface(L"_CommandBarButtonEvents");

CValue OnePixel() {
  PICTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = CreateBitmap(1, 1, 1, 32, nullptr);
  IPictureDisp* picture = nullptr;
  OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                           reinterpret_cast<void**>(&picture));
  CValue value(static_cast<IDispatch*>(picture));
  picture->Release();
  return value;
}

// An explorer's command bars for the add-in (m_remote) and for the user (m_bars).
class CommandBars : public testing::Test {
 protected:
  CRemote AddBar(const wchar_t* name) {
    return m_remote.Object(L"Add", {name, mso::kTop, false, true});
  }
  // The add-in's usual bar, shown.
  CRemote ShownBar() {
    CRemote bar = AddBar(L"Ours");
    bar.Put(L"Visible", true);
    return bar;
  }
  static CRemote AddControl(const CRemote& owner, long type, const wchar_t* caption,
                            const wchar_t* tag) {
    CRemote control = owner.Object(L"Controls").Object(L"Add", {type});
    control.Put(L"Caption", caption);
    control.Put(L"Tag", tag);
    return control;
  }
  void Click(std::vector<std::wstring> path) { m_bars->Click(path); }

  CModel m_model;
  std::shared_ptr<CControlRegistry> m_registry = std::make_shared<CControlRegistry>();
  CModelPtr<CCommandBars> m_bars =
      MakeObject<CCommandBars>(m_model, m_registry, CCommandBars::Kind::Shown);
  CRemote m_remote{m_bars.get()};
};

TEST_F(CommandBars, ANewBarIsHiddenUntilItIsShown) {
  const CRemote bar = AddBar(L"Ours");
  EXPECT_EQ(V_BOOL(&bar.Get(L"Visible").Get()), VARIANT_FALSE);
  bar.Put(L"Enabled", false);
  bar.Put(L"Visible", true);
  EXPECT_EQ(CRemote::lastException, E_FAIL);
  bar.Put(L"Enabled", true);
  bar.Put(L"Visible", true);
  EXPECT_EQ(V_BOOL(&bar.Get(L"Visible").Get()), VARIANT_TRUE);
}

TEST_F(CommandBars, AClickReachesEverySinkOfTheTag) {
  const CRemote bar = ShownBar();
  const CRemote controls[] = {AddControl(bar, 1, L"One", L"Same"),
                              AddControl(bar, 1, L"Two", L"Same"),
                              AddControl(bar, 1, L"Other", L"Other")};
  CTestSink sinks[] = {CTestSink(kButtonEventsId), CTestSink(kButtonEventsId),
                       CTestSink(kButtonEventsId)};
  DWORD cookie = 0;
  for (int i = 0; i < 3; ++i)
    ASSERT_EQ(Advise(controls[i], kButtonEventsId, sinks[i], cookie), S_OK);
  Click({L"One"});
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(sinks[i].heard.size(), i < 2 ? 1u : 0u);
}

TEST_F(CommandBars, EventsStopWhenTheAdvisedControlIsReleased) {
  const CRemote bar = ShownBar();
  CTestSink sink(kButtonEventsId);
  DWORD cookie = 0;
  {
    const CRemote button = AddControl(bar, 1, L"One", L"One");
    ASSERT_EQ(Advise(button, kButtonEventsId, sink, cookie), S_OK);
    Click({L"One"});
  }
  EXPECT_EQ(sink.heard.size(), 1u);
  EXPECT_EQ(sink.references, 1u);
  Click({L"One"});
  EXPECT_EQ(sink.heard.size(), 1u);
}

TEST_F(CommandBars, UsersCannotClickWhatTheyCannotReach) {
  const CRemote bar = AddBar(L"Ours");
  const CRemote popup = AddControl(bar, 10, L"Menu", L"Menu");
  AddControl(popup, 1, L"Item", L"Item");
  EXPECT_THROW(Click({L"Item"}), CUserActionError);  // the bar is hidden
  bar.Put(L"Visible", true);
  EXPECT_NO_THROW(Click({L"Item"}));
  popup.Put(L"Enabled", false);
  EXPECT_THROW(Click({L"Menu", L"Item"}), CUserActionError);
  EXPECT_THROW(Click({L"Menu", L"None"}), CUserActionError);
}

TEST_F(CommandBars, AutomaticStyleHidesTheCaptionBehindThePicture) {
  const CRemote button = AddControl(ShownBar(), 1, L"One", L"One");
  EXPECT_TRUE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Picture", OnePixel());
  EXPECT_FALSE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Style", mso::kIconAndCaption);
  EXPECT_TRUE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Style", 4);
  EXPECT_EQ(CRemote::lastException, E_INVALIDARG);
}

}  // namespace
}  // namespace quor::workbench
