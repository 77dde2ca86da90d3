#include "workbench/ribbon/schema.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <stdexcept>

namespace quor::workbench {
namespace {

constexpr size_t kLongestText = 1024;
constexpr size_t kLongestDescription = 4096;
constexpr size_t kLongestKeytip = 3;

// --- groups of attributes ---

const std::string kIdOwn = " id idQ";
const std::string kId = kIdOwn + " idMso tag";
const std::string kPosition = " insertAfterMso insertBeforeMso insertAfterQ insertBeforeQ";
const std::string kEnabled = " enabled getEnabled";
const std::string kVisible = " visible getVisible";
const std::string kLabel = " label getLabel";
const std::string kShowLabel = " showLabel getShowLabel";
const std::string kImage = " image imageMso getImage";
const std::string kTips = " screentip getScreentip supertip getSupertip";
const std::string kKeytip = " keytip getKeytip";
const std::string kDescription = " description getDescription";
const std::string kSize = " size getSize";
const std::string kTitle = " title getTitle";
const std::string kCommonButVisible = kImage + kTips + kEnabled + kLabel + kPosition + kKeytip +
                                      kShowLabel + " showImage getShowImage";
const std::string kCommon = kCommonButVisible + kVisible;
const std::string kControl = kCommon + kId;
const std::string kEdit = kControl + " maxLength getText onChange sizeString";
const std::string kItems =
    " showItemImage getItemCount getItemLabel getItemScreentip getItemSupertip getItemImage "
    "getItemID";
const std::string kSelection =
    " onAction sizeString getSelectedItemID getSelectedItemIndex showItemLabel";
const std::string kGallery = kControl + kItems + kSelection + kDescription +
                             " invalidateContentOnDrop columns rows itemWidth itemHeight "
                             "getItemWidth getItemHeight";
const std::string kButton = kControl + " onAction" + kDescription;
const std::string kPressed = " getPressed";
const std::string kSplitButton = kEnabled + kPosition + kVisible + kKeytip + kShowLabel + kId;
const std::string kDynamicMenu = kControl + kDescription + " getContent invalidateContentOnDrop";
const std::string kBox = kIdOwn + kVisible + kPosition;

// --- groups of children ---

const std::string kInMenu =
    "control:ControlInMenu button:ButtonInMenu checkBox:CheckBox gallery:GalleryInMenu "
    "toggleButton:ToggleButtonInMenu menuSeparator:MenuSeparator dynamicMenu:DynamicMenuInMenu";
const std::string kMenuContent = kInMenu + " splitButton:SplitButtonInMenu menu:MenuInMenu";
const std::string kTitledMenuContent = kInMenu + " splitButton:SplitButtonTitled menu:MenuTitled";
const std::string kInBox =
    "control:ControlInGroup labelControl:LabelControl button:Button toggleButton:ToggleButton "
    "checkBox:CheckBox editBox:EditBox comboBox:ComboBox dropDown:DropDown gallery:Gallery "
    "menu:Menu dynamicMenu:DynamicMenu splitButton:SplitButton box:Box buttonGroup:ButtonGroup";
const std::string kInButtonGroup =
    "control:ControlInMenu button:ButtonInMenu toggleButton:ToggleButtonInMenu "
    "gallery:GalleryInMenu menu:MenuInMenu dynamicMenu:DynamicMenuInMenu "
    "splitButton:SplitButtonInMenu";

// A child is written name:Type, optionally with minimum, maximum and rank: "tab:Tab/1/100",
// "dialogBoxLauncher:DialogBoxLauncher/0/1/1".
struct Row {
  const char* type;
  std::string attributes;
  std::string children;
  bool needsId = false;
};

std::vector<Row> Rows() {
  return {
      {"CustomUi", "onLoad loadImage", "commands:Commands/0/1/0 ribbon:Ribbon/0/1/1"},
      {"Commands", "", "command:Command/1/5000"},
      {"Command", "onAction idMso" + kEnabled, "", true},
      {"Ribbon", "startFromScratch",
       "officeMenu:OfficeMenu/0/1 qat:Qat/0/1 tabs:Tabs/0/1 contextualTabs:ContextualTabs/0/1"},
      {"OfficeMenu", "", kTitledMenuContent},
      {"Qat", "", "sharedControls:QatItems/0/1/0 documentControls:QatItems/0/1/1"},
      {"QatItems", "", "control:ControlInQat button:ButtonInMenu separator:Separator"},
      {"Tabs", "", "tab:Tab/1/100"},
      {"ContextualTabs", "", "tabSet:TabSet/1/100"},
      {"TabSet", "idMso" + kVisible, "tab:Tab/0/50", true},
      {"Tab", kId + kLabel + kPosition + kVisible + kKeytip, "group:Group/0/100", true},
      {"Group", kId + kLabel + kImage + kPosition + kTips + kVisible + kKeytip,
       kInBox + " separator:Separator dialogBoxLauncher:DialogBoxLauncher/0/1/1", true},
      {"DialogBoxLauncher", "", "button:ButtonInMenu/1/1"},
      {"Box", kBox + " boxStyle", kInBox},
      {"ButtonGroup", kBox, kInButtonGroup},
      {"Separator", kBox, ""},
      {"MenuSeparator", kIdOwn + kPosition + kTitle, ""},
      {"Item", "id label image imageMso screentip supertip", ""},
      {"ControlInGroup", kCommon + " idQ idMso tag" + kDescription + kSize, "", true},
      {"ControlInMenu", kCommon + " idQ idMso tag", "", true},
      {"ControlInQat", kCommon + kIdOwn + " idMso" + kDescription + kSize, "", true},
      {"LabelControl", kTips + kEnabled + kLabel + kPosition + kVisible + kShowLabel + kId, "",
       true},
      {"Button", kButton + kSize, "", true},
      {"ButtonInMenu", kButton, "", true},
      {"ButtonInSplit", kCommonButVisible + kId + " onAction" + kDescription, "", true},
      {"ToggleButton", kButton + kPressed + kSize, "", true},
      {"ToggleButtonInMenu", kButton + kPressed, "", true},
      {"ToggleButtonInSplit", kCommonButVisible + kId + " onAction" + kDescription + kPressed, "",
       true},
      {"CheckBox",
       kTips + kEnabled + kLabel + kPosition + kVisible + kKeytip + kId + " onAction" +
           kDescription + kPressed,
       "", true},
      {"EditBox", kEdit, "", true},
      {"ComboBox", kEdit + kItems + " invalidateContentOnDrop", "item:Item", true},
      {"DropDown", kControl + kItems + kSelection, "item:Item/0/1000/0 button:ButtonInMenu/0/16/1",
       true},
      {"Gallery", kGallery + kSize, "item:Item/0/1000/0 button:ButtonInMenu/0/16/1", true},
      {"GalleryInMenu", kGallery, "item:Item/0/1000/0 button:ButtonInMenu/0/16/1", true},
      {"Menu", kControl + kDescription + kSize + " itemSize", kMenuContent, true},
      {"MenuInMenu", kControl + kDescription + " itemSize", kMenuContent, true},
      {"MenuTitled", kControl + kTitle + " itemSize", kTitledMenuContent, true},
      {"DynamicMenu", kDynamicMenu + kSize, "", true},
      {"DynamicMenuInMenu", kDynamicMenu, "", true},
      {"SplitButton", kSplitButton + kSize,
       "button:ButtonInSplit/0/1/0 toggleButton:ToggleButtonInSplit/0/1/0 menu:MenuInMenu/1/1/1",
       true},
      {"SplitButtonInMenu", kSplitButton,
       "button:ButtonInSplit/0/1/0 toggleButton:ToggleButtonInSplit/0/1/0 menu:MenuInMenu/1/1/1",
       true},
      {"SplitButtonTitled", kSplitButton,
       "button:ButtonInSplit/0/1/0 toggleButton:ToggleButtonInSplit/0/1/0 menu:MenuTitled/1/1/1",
       true},
  };
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;)
    words.push_back(word);
  return words;
}

ChildRule ReadChildRule(std::string text) {
  ChildRule rule;
  std::replace(text.begin(), text.end(), ':', ' ');
  std::replace(text.begin(), text.end(), '/', ' ');
  std::istringstream stream(text);
  stream >> rule.name >> rule.type;
  size_t least = 0;
  size_t most = 0;
  if (stream >> least >> most) {
    rule.least = least;
    rule.most = most;
    stream >> rule.rank;
  }
  return rule;
}

std::map<std::string, ElementType, std::less<>> BuildTypes() {
  std::map<std::string, ElementType, std::less<>> types;
  for (const Row& row : Rows()) {
    ElementType type{row.type, Words(row.attributes), {}, row.needsId};
    for (const std::string& child : Words(row.children))
      type.children.push_back(ReadChildRule(child));
    types.emplace(row.type, std::move(type));
  }
  return types;
}

// --- values of attributes ---

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsNcName(std::string_view text) {
  const auto isStart = [](char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
  };
  return !text.empty() && isStart(text.front()) &&
         std::all_of(text.begin(), text.end(), [&](char c) {
           return isStart(c) || std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '-' ||
                  c == '.';
         });
}

bool IsQName(std::string_view text) {
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos) return IsNcName(text);
  return IsNcName(text.substr(0, colon)) && IsNcName(text.substr(colon + 1));
}

size_t CharacterCount(std::string_view utf8) {
  return static_cast<size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

bool IsCallback(std::string_view name) {
  const bool getter = name.starts_with("get") && name.size() > 3 &&
                      std::isupper(static_cast<unsigned char>(name[3])) != 0;
  return getter || IsOneOf(name, {"onLoad", "loadImage", "onAction", "onChange"});
}

std::optional<std::string> FaultOfNumber(const std::string& value, unsigned long greatest) {
  const bool digits = !value.empty() && value.size() < 8 &&
                      value.find_first_not_of("0123456789") == std::string::npos;
  if (digits && std::stoul(value) >= 1 && std::stoul(value) <= greatest) return std::nullopt;
  return "must be a number from 1 to " + std::to_string(greatest);
}

std::optional<std::string> FaultOfLength(const std::string& value, size_t longest) {
  const size_t length = CharacterCount(value);
  if (length >= 1 && length <= longest) return std::nullopt;
  return "must have 1 to " + std::to_string(longest) + " characters, not " + std::to_string(length);
}

}  // namespace

const ElementType& FindElementType(std::string_view type) {
  static const auto types = BuildTypes();
  const auto found = types.find(type);
  if (found == types.end()) throw std::out_of_range("no element type " + std::string(type));
  return found->second;
}

std::optional<std::string> FaultOfAttribute(const std::string& name, const std::string& value) {
  if (IsOneOf(name, {"enabled", "visible", "showLabel", "showImage", "startFromScratch",
                     "showItemImage", "showItemLabel", "invalidateContentOnDrop"})) {
    if (IsOneOf(value, {"true", "false", "1", "0"})) return std::nullopt;
    return "must be true or false";
  }
  if (IsOneOf(name, {"size", "itemSize"})) {
    if (IsOneOf(value, {"normal", "large"})) return std::nullopt;
    return "must be normal or large";
  }
  if (name == "boxStyle") {
    if (IsOneOf(value, {"horizontal", "vertical"})) return std::nullopt;
    return "must be horizontal or vertical";
  }
  if (IsOneOf(name, {"maxLength", "columns", "rows"})) return FaultOfNumber(value, 1024);
  if (IsOneOf(name, {"itemWidth", "itemHeight"})) return FaultOfNumber(value, 4096);
  if (name == "keytip") return FaultOfLength(value, kLongestKeytip);
  if (name == "description") return FaultOfLength(value, kLongestDescription);
  if (auto fault = FaultOfLength(value, kLongestText)) return fault;
  if (IsOneOf(name, {"id", "idMso", "imageMso", "insertAfterMso", "insertBeforeMso"})) {
    if (!IsNcName(value)) return "is not a name";
  }
  if (IsOneOf(name, {"idQ", "insertAfterQ", "insertBeforeQ"})) {
    if (!IsQName(value)) return "is not a qualified name";
  }
  if (IsCallback(name) && value.find_first_of(" \t\r\n") != std::string::npos) {
    return "is not a method's name";
  }
  return std::nullopt;
}

const std::vector<std::vector<std::string>>& ExclusiveAttributes() {
  static const std::vector<std::vector<std::string>> sets = {
      {"id", "idQ", "idMso"},
      {"insertAfterMso", "insertBeforeMso", "insertAfterQ", "insertBeforeQ"},
      {"image", "imageMso", "getImage"},
      {"label", "getLabel"},
      {"enabled", "getEnabled"},
      {"visible", "getVisible"},
      {"showLabel", "getShowLabel"},
      {"showImage", "getShowImage"},
      {"screentip", "getScreentip"},
      {"supertip", "getSupertip"},
      {"keytip", "getKeytip"},
      {"description", "getDescription"},
      {"size", "getSize"},
      {"title", "getTitle"},
      {"itemWidth", "getItemWidth"},
      {"itemHeight", "getItemHeight"},
      {"getSelectedItemID", "getSelectedItemIndex"},
  };
  return sets;
}

const std::vector<BuiltInTab>& BuiltInTabs() {
  static const std::vector<BuiltInTab> tabs = {
      {RibbonWindow::Explorer, "TabMail", "Home", "GroupMailNew"},
      {RibbonWindow::Explorer, "TabCalendarTableView", "Home", "GroupCalendarNew"},
      {RibbonWindow::Explorer, "TabCalendar", "Home", "GroupCalendarNew"},
      {RibbonWindow::Explorer, "TabContacts", "Home", "GroupContactsNew"},
      {RibbonWindow::Explorer, "TabTasks", "Home", "GroupTasksNew"},
      {RibbonWindow::Explorer, "TabNotes", "Home", "GroupNotesNew"},
      {RibbonWindow::Explorer, "TabJournals", "Home", "GroupJournalNew"},
      {RibbonWindow::Contact, "TabContact", "Contact", "GroupActions"},
  };
  return tabs;
}

bool HasBuiltInTab(RibbonWindow window, std::string_view tab) {
  const auto& tabs = BuiltInTabs();
  return std::any_of(tabs.begin(), tabs.end(),
                     [&](const BuiltInTab& one) { return one.window == window && one.id == tab; });
}

bool HasBuiltInGroup(RibbonWindow window, std::string_view tab, std::string_view group) {
  const auto& tabs = BuiltInTabs();
  return std::any_of(tabs.begin(), tabs.end(), [&](const BuiltInTab& one) {
    return one.window == window && one.id == tab && one.firstGroup == group;
  });
}

}  // namespace quor::workbench
