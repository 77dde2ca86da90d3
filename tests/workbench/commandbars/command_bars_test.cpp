#include "workbench/commandbars/command_bars.h"

#include <gtest/gtest.h>

#include "tests/workbench/office/late_bound.h"
#include "tests/workbench/ui/test_picture.h"

namespace quor::workbench {
namespace {

const CValue kMissing = [] {
  VARIANT missing;
  VariantInit(&missing);
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  return CValue::Copy(missing);
}();

// An explorer's command bars, seen from the add-in (m_remote) and from the user (m_bars).
class CommandBars : public testing::Test {
 protected:
  CRemote AddBar(const wchar_t* name) {
    return m_remote.Object(L"Add", {name, mso::kTop, kMissing, true});
  }
  // The add-in's usual bar, shown.
  CRemote ShownBar() {
    CRemote bar = AddBar(L"Ours");
    bar.Put(L"Visible", true);
    return bar;
  }
  static CRemote AddControl(const CRemote& owner, long type, const wchar_t* caption,
                            const wchar_t* tag) {
    const CRemote control = owner.Object(L"Controls").Object(L"Add", {type});
    control.Put(L"Caption", caption);
    control.Put(L"Tag", tag);
    return control;
  }
  CRemote Find(long type, const wchar_t* tag) {
    return m_remote.Object(L"FindControl", {type, kMissing, tag});
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

TEST_F(CommandBars, ANameIsTakenOnce) {
  AddBar(L"Ours");
  EXPECT_FALSE(AddBar(L"OURS"));
  EXPECT_EQ(CRemote::lastException, E_INVALIDARG);
  m_remote.Object(L"Item", {L"Ours"}).Call(L"Delete");
  EXPECT_TRUE(AddBar(L"Ours"));
}

TEST_F(CommandBars, OutlooksOwnBarsStay) {
  m_remote.Object(L"ActiveMenuBar").Call(L"Delete");
  EXPECT_EQ(CRemote::lastException, E_FAIL);
}

TEST_F(CommandBars, OnlySomeControlTypesCanBeAdded) {
  const CRemote controls = AddBar(L"Ours").Object(L"Controls");
  for (const long type : {1L, 2L, 3L, 4L, 10L})
    EXPECT_TRUE(controls.Object(L"Add", {type})) << type;
  for (const long type : {0L, 5L, 11L, 15L, 22L}) {
    EXPECT_FALSE(controls.Object(L"Add", {type})) << type;
    EXPECT_EQ(CRemote::lastException, E_INVALIDARG) << type;
  }
  EXPECT_EQ(controls.Number(L"Count"), 5);
}

TEST_F(CommandBars, ControlsStandWhereTheyWerePut) {
  const CRemote bar = AddBar(L"Ours");
  AddControl(bar, 1, L"&Second", L"2");
  const CRemote first = bar.Object(L"Controls").Object(L"Add", {1, kMissing, kMissing, 1});
  EXPECT_EQ(first.Number(L"Index"), 1);
  EXPECT_EQ(bar.Object(L"Controls").Object(L"Item", {L"Second"}).Text(L"Tag"), L"2");
  EXPECT_FALSE(bar.Object(L"Controls").Object(L"Add", {1, kMissing, kMissing, 4}));
  EXPECT_FALSE(bar.Object(L"Controls").Object(L"Item", {3}));
}

TEST_F(CommandBars, FindControlAnswersNothingRatherThanFailing) {
  const CRemote bar = AddBar(L"Ours");
  const CRemote popup = AddControl(bar, 10, L"Cells", L"Cells");
  AddControl(popup, 1, L"Cell1", L"One");
  EXPECT_TRUE(Find(1, L"One"));
  EXPECT_FALSE(Find(4, L"One"));
  EXPECT_EQ(CRemote::lastCode, S_OK);
  EXPECT_FALSE(Find(1, L"one"));
  // Hidden bars are left out only when asked for; a bar itself looks deeper only when asked for.
  EXPECT_FALSE(m_remote.Object(L"FindControl", {1, kMissing, L"One", true}));
  EXPECT_FALSE(bar.Object(L"FindControl", {1, kMissing, L"One"}));
  EXPECT_TRUE(bar.Object(L"FindControl", {1, kMissing, L"One", false, true}));
  EXPECT_FALSE(m_remote.Object(L"FindControls", {kMissing, kMissing, L"None"}));
  EXPECT_EQ(m_remote.Object(L"FindControls", {1, 1}).Number(L"Count"), 1);
}

TEST_F(CommandBars, AClickReachesEverySinkOfTheTag) {
  const CRemote bar = ShownBar();
  const CRemote one = AddControl(bar, 1, L"One", L"Same");
  const CRemote two = AddControl(bar, 1, L"Two", L"Same");
  const CRemote other = AddControl(bar, 1, L"Other", L"Other");
  const auto second = MakeObject<CCommandBars>(m_model, m_registry, CCommandBars::Kind::Shown);
  const CRemote distantBar = CRemote(second.get()).Object(L"Add", {L"Ours"});
  const CRemote distant = AddControl(distantBar, 1, L"Distant", L"Same");
  CTestSink sinks[] = {CTestSink(mso::kButtonEventsId), CTestSink(mso::kButtonEventsId),
                       CTestSink(mso::kButtonEventsId), CTestSink(mso::kButtonEventsId)};
  const CRemote* controls[] = {&one, &two, &other, &distant};
  DWORD cookies[4] = {};
  for (int i = 0; i < 4; ++i)
    ASSERT_EQ(Advise(*controls[i], mso::kButtonEventsId, sinks[i], cookies[i]), S_OK);
  std::wstring clicked;
  sinks[1].during = [&clicked](DISPID, const DISPPARAMS& arguments) {
    ASSERT_EQ(arguments.cArgs, 2u);
    EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_BYREF | VT_BOOL);
    clicked = CRemote(V_DISPATCH(&arguments.rgvarg[1])).Text(L"Caption");
  };
  Click({L"One"});
  EXPECT_EQ(clicked, L"One");
  EXPECT_EQ(sinks[0].heard.size(), 1u);
  EXPECT_EQ(sinks[1].heard.size(), 1u);
  EXPECT_EQ(sinks[2].heard.size(), 0u);
  EXPECT_EQ(sinks[3].heard.size(), 1u);
}

TEST_F(CommandBars, EventsStopWhenTheAdvisedControlIsReleased) {
  const CRemote bar = ShownBar();
  CTestSink sink(mso::kButtonEventsId);
  DWORD cookie = 0;
  {
    const CRemote button = AddControl(bar, 1, L"One", L"One");
    ASSERT_EQ(Advise(button, mso::kButtonEventsId, sink, cookie), S_OK);
    Click({L"One"});
  }
  EXPECT_EQ(sink.heard.size(), 1u);
  EXPECT_EQ(sink.References(), 1u);
  Click({L"One"});
  EXPECT_EQ(sink.heard.size(), 1u);
}

TEST_F(CommandBars, AMenuMayRebuildItselfDuringAClick) {
  const CRemote bar = ShownBar();
  const CRemote popup = AddControl(bar, 10, L"Menu", L"Menu");
  CRemote item = AddControl(popup, 1, L"Item", L"Item");
  CTestSink sink(mso::kButtonEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(item, mso::kButtonEventsId, sink, cookie), S_OK);
  sink.during = [&](DISPID, const DISPPARAMS&) {
    item.Call(L"Delete");
    item = CRemote();
    AddControl(popup, 1, L"New", L"New");
  };
  Click({L"Menu", L"Item"});
  EXPECT_EQ(popup.Object(L"Controls").Number(L"Count"), 1);
  EXPECT_TRUE(m_model.Misuses().empty());
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

TEST_F(CommandBars, AComboBoxRaisesChangeForWhatTheUserDoes) {
  const CRemote bar = ShownBar();
  const CRemote combo = AddControl(bar, 4, L"Dial", L"Dial");
  CTestSink sink(mso::kComboBoxEventsId);
  DWORD cookie = 0;
  ASSERT_EQ(Advise(combo, mso::kComboBoxEventsId, sink, cookie), S_OK);
  combo.Call(L"AddItem", {L"222"});
  combo.Call(L"AddItem", {L"111", 1});
  combo.Put(L"Text", L"222");
  EXPECT_EQ(combo.Number(L"ListIndex"), 2);
  EXPECT_TRUE(sink.heard.empty());
  m_bars->EnterText(std::vector<std::wstring>{L"Dial"}, L"333");
  EXPECT_EQ(combo.Text(L"Text"), L"333");
  EXPECT_EQ(combo.Number(L"ListIndex"), 0);
  m_bars->PickEntry(std::vector<std::wstring>{L"Dial"}, L"111");
  EXPECT_EQ(combo.Number(L"ListIndex"), 1);
  combo.Put(L"ListIndex", 2);  // counts as the user's choice
  EXPECT_EQ(sink.heard.size(), 3u);
  combo.Call(L"RemoveItem", {3});
  EXPECT_EQ(CRemote::lastException, E_INVALIDARG);
  EXPECT_EQ(WideFromBstr(V_BSTR(&combo.Call(L"List", {1}).Get())), L"111");
  combo.Call(L"Clear");
  EXPECT_EQ(combo.Number(L"ListCount"), 0);
}

TEST_F(CommandBars, PicturesComeByEitherKindOfPut) {
  const CRemote button = AddControl(ShownBar(), 1, L"One", L"One");
  button.Put(L"Mask", TestPicture(0, 0));
  EXPECT_EQ(CRemote::lastException, E_FAIL);  // nothing to mask yet
  button.Put(L"Picture", TestPicture(0x00102030, 0x00405060));
  button.Put(L"Mask", TestPicture(0x00FFFFFF, 0), DISPATCH_PROPERTYPUTREF);
  EXPECT_EQ(CRemote::lastCode, S_OK);
  const ControlFace face = m_bars->ControlFaces().front();
  EXPECT_TRUE(face.hasMask);
  // White in the mask lets the bar through, black shows the picture, its alpha ignored.
  EXPECT_EQ(face.picture->colours, (std::vector<uint32_t>{0, 0xFF405060}));
  button.Put(L"Picture", EmptyPicture());
  EXPECT_EQ(CRemote::lastException, E_FAIL);
  button.Put(L"Picture", m_remote.Raw());
  EXPECT_EQ(CRemote::lastException, E_INVALIDARG);
}

TEST_F(CommandBars, AutomaticStyleHidesTheCaptionBehindThePicture) {
  const CRemote button = AddControl(ShownBar(), 1, L"One", L"One");
  EXPECT_TRUE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Picture", TestPicture(0, 0));
  EXPECT_FALSE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Style", mso::kIconAndCaption);
  EXPECT_TRUE(m_bars->ControlFaces().front().showsCaption);
  button.Put(L"Style", 4);
  EXPECT_EQ(CRemote::lastException, E_INVALIDARG);
}

TEST_F(CommandBars, DeletedControlsFailAndAreFoundNoMore) {
  const CRemote bar = ShownBar();
  const CRemote popup = AddControl(bar, 10, L"Menu", L"Menu");
  const CRemote item = AddControl(popup, 1, L"Item", L"Item");
  m_bars->DeleteControl(std::vector<std::wstring>{L"Menu"});
  for (const CRemote* gone : {&popup, &item}) {
    gone->Get(L"Caption");
    EXPECT_EQ(CRemote::lastException, E_FAIL);
  }
  EXPECT_FALSE(Find(1, L"Item"));
  m_bars->Close();
  bar.Get(L"Visible");
  EXPECT_EQ(CRemote::lastException, E_FAIL);
}

TEST_F(CommandBars, OnlyWhatIsNotTemporarySurvivesARestart) {
  const CRemote kept = m_remote.Object(L"Add", {L"Kept", mso::kTop});
  AddControl(kept, 1, L"Stays", L"Stays");
  kept.Object(L"Controls").Call(L"Add", {1, kMissing, kMissing, kMissing, true});
  AddBar(L"Temporary");
  const auto next = MakeObject<CCommandBars>(m_model, m_registry, CCommandBars::Kind::Shown);
  next->Restore(m_bars->StoredBars());
  const CRemote remote(next.get());
  EXPECT_FALSE(remote.Object(L"Item", {L"Temporary"}));
  const CRemote controls = remote.Object(L"Item", {L"Kept"}).Object(L"Controls");
  ASSERT_EQ(controls.Number(L"Count"), 1);
  EXPECT_EQ(controls.Object(L"Item", {1}).Text(L"Tag"), L"Stays");
}

TEST_F(CommandBars, TheUserMovesAndHidesBars) {
  const CRemote bar = ShownBar();
  m_bars->MoveBar(L"Ours", mso::kFloating, 30, 40, 0);
  m_bars->ShowBar(L"Ours", false);
  EXPECT_EQ(bar.Number(L"Position"), mso::kFloating);
  EXPECT_EQ(bar.Number(L"Left"), 30);
  EXPECT_EQ(V_BOOL(&bar.Get(L"Visible").Get()), VARIANT_FALSE);
  bar.Put(L"Protection", mso::kNoMove);
  EXPECT_THROW(m_bars->MoveBar(L"Ours", mso::kTop, 0, 0, 1), CUserActionError);
}

TEST_F(CommandBars, WithoutToolbarsFindControlFindsNothing) {
  const auto hidden = MakeObject<CCommandBars>(m_model, m_registry, CCommandBars::Kind::Hidden);
  const CRemote remote(hidden.get());
  AddControl(remote.Object(L"Add", {L"Ours"}), 1, L"One", L"One");
  EXPECT_FALSE(remote.Object(L"FindControl", {1, kMissing, L"One"}));
  EXPECT_EQ(CRemote::lastCode, S_OK);
}

}  // namespace
}  // namespace quor::workbench
