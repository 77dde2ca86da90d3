#include "toolbar/ribbon_control_id.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "device/line_type.h"
#include "resources/resource_ids.h"
#include "telephone/control_rules.h"
#include "tests/toolbar/faces_fixture.h"
#include "toolbar/ribbon_faces.h"

namespace quor {
namespace {

std::string ReadSource(const char* path) {
  std::ifstream file(std::string(QUOR_SOURCE_DIR) + "/" + path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

using Attributes = std::map<std::string, std::string>;

// The attributes of all elements of a document.
std::vector<Attributes> Elements(const char* path) {
  std::istringstream text(ReadSource(path));
  std::vector<Attributes> all;
  for (std::string element; std::getline(text, element, '>');) {
    Attributes& attributes = all.emplace_back();
    for (size_t end = 0, is = 0; (is = element.find("=\"", end)) != std::string::npos; ++end) {
      const size_t name = element.find_last_of(" \n", is) + 1;
      end = element.find('"', is + 2);
      attributes.emplace(element.substr(name, is - name), element.substr(is + 2, end - is - 2));
    }
  }
  return all;
}

RibbonControlId Parsed(const std::string& id) {
  return RibbonControlIdFrom(std::wstring(id.begin(), id.end()));
}

struct Document {
  const char* path;
  size_t controls;
};
class RibbonDocument : public testing::TestWithParam<Document> {};

INSTANTIATE_TEST_SUITE_P(Both, RibbonDocument,
                         testing::Values(Document{"src/resources/ribbon_explorer.xml", 7 * 71},
                                         Document{"src/resources/ribbon_contact.xml", 84}));

// Each element's attributes agree with what the add-in parses from its id, and Office finds the
// callbacks by their names in the type library.
TEST_P(RibbonDocument, EveryControlIsUnderstood) {
  const std::map<std::string, RibbonFunction> actions = {
      {"Line1Clicked", RibbonFunction::Line1},
      {"Line2Clicked", RibbonFunction::Line2},
      {"CellClicked", RibbonFunction::Cell},
      {"CallerListClicked", RibbonFunction::Caller},
      {"SpeedDialClicked", RibbonFunction::SpeedDialItem},
      {"OptionsClicked", RibbonFunction::Options},
      {"ContactDialNClicked", RibbonFunction::ContactNumber},
      {"ContactLine1Clicked", RibbonFunction::ContactLine1},
      {"ContactLine2Clicked", RibbonFunction::ContactLine2}};
  const std::string idl = ReadSource("src/module/quor_telephone_toolbar.idl");
  const FacesFixture telephone;
  std::set<std::string> ids;
  for (const Attributes& element : Elements(GetParam().path)) {
    for (const auto& [name, value] : element) {
      const bool isCallback = name.starts_with("get") || name.starts_with("on");
      EXPECT_TRUE(!isCallback || idl.find(" " + value + "(") != std::string::npos) << value;
    }
    const auto id = element.find("id");
    if (id == element.end() || id->second.starts_with("Main")) continue;
    SCOPED_TRACE(id->second);
    EXPECT_TRUE(ids.insert(id->second).second);
    const RibbonControlId control = Parsed(id->second);
    EXPECT_NE(control.function, RibbonFunction::None);
    EXPECT_EQ(RibbonPicture(telephone.Faces(), control.function) != 0,
              element.contains("getImage"));
    const auto action = element.find("onAction");
    if (action != element.end()) {
      EXPECT_EQ(actions.at(action->second), control.function);
    }
  }
  EXPECT_EQ(ids.size(), GetParam().controls);
}

TEST(RibbonControlId, ReadsWhatTheIdSays) {
  using enum RibbonFunction;
  const std::pair<const char*, RibbonControlId> good[] = {
      {"MailComboDial", {DialBox, 0, {}}},
      {"CalendarTableViewCallFromCell", {CellMenu, 0, {}}},
      {"CalendarTableViewCustomMenuSpeedDial", {SpeedDialMenu, 0, {}}},
      {"CalendarTableViewCell3", {Cell, 3, {}}},
      {"ContactsCallerList9", {Caller, 9, {}}},
      {"TasksSpeedDialMenu0", {SpeedDialEntry, 0, {}}},
      {"NotesSpeedDialA4", {SpeedDialItem, 4, SpeedDialAction::Add}},
      {"JournalsSpeedDialU5", {SpeedDialItem, 5, SpeedDialAction::Edit}},
      {"MailSpeedDialR6", {SpeedDialItem, 6, SpeedDialAction::Erase}},
      {"MenuAssistant", {ContactNumber, 1, {}}},
      {"MenuPrimary", {ContactNumber, 12, {}}},
  };
  for (const auto& [id, control] : good)
    EXPECT_EQ(Parsed(id), control) << id;
}

TEST(RibbonControlId, TakesNothingElseForItsOwn) {
  for (const char* id :
       {"", "Mail", "mailComboDial", "ComboDial", "MailCell4", "MailCell", "MailCell10",
        "MailCallerList", "MailSpeedDialX1", "MailComboDial1", "CalendarTableComboDial", "Menu",
        "MenuFax", "CustomButtonLine1", "TabMail", "MailMailCell0", "CustomButtonLine1C0"}) {
    EXPECT_EQ(Parsed(id), RibbonControlId{}) << id;
  }
}

TEST(RibbonPicture, ShowsWhatAClickOnALineDoes) {
  using enum RibbonFunction;
  const struct {
    uint8_t line1, line2, cell, cidLine;
    int line1Picture, line2Picture, cellPicture;
  } cases[] = {
      {kStateNoBase, kStateNoBase, kStateNoBase, 0, IDP_CALL, IDP_CALL, IDP_CELL},
      {kStateIdle, kStateTaken, kStateInCall, 0, IDP_CALL, IDP_HANG_UP, IDP_HANG_UP},
      {kStateBusy, kStateBusy, kStateBusy, kLine2, IDP_CALL, IDP_ANSWER, IDP_CELL},
      {kStateBusy, kStateBusy, kStateBusy, kCell1, IDP_CALL, IDP_CALL, IDP_ANSWER},
  };
  FacesFixture telephone;
  for (const auto& shown : cases) {
    telephone.Lines(shown.line1, shown.line2, shown.cell, shown.cidLine);
    const CControlFaces faces = telephone.Faces();
    EXPECT_EQ(RibbonPicture(faces, Line1), shown.line1Picture);
    EXPECT_EQ(RibbonPicture(faces, ContactLine1), shown.line1Picture);
    EXPECT_EQ(RibbonPicture(faces, Line2), shown.line2Picture);
    EXPECT_EQ(RibbonPicture(faces, ContactLine2), shown.line2Picture);
    EXPECT_EQ(RibbonPicture(faces, CellMenu), shown.cellPicture);
  }
}

TEST(RibbonPicture, IsNeverScaledUpWhileALargerOneExists) {
  for (const auto& [dotsPerInch, picture] :
       {std::pair(96, 540), {120, 640}, {144, 640}, {192, 740}, {288, 840}, {600, 840}})
    EXPECT_EQ(PictureForScreen(IDP_LINE1, dotsPerInch), picture);
}

}  // namespace
}  // namespace quor
