#include "telephone_desk.h"

#include <algorithm>
#include <utility>

#include "text/ansi.h"
#include "text/format.h"

namespace quor {

namespace {

std::string Show(const CallerValue& value) {
  if (value.withheldTextId != 0) return std::to_string(value.withheldTextId);
  std::string shown = "'" + AnsiFromWide(value.text) + "'";
  if (!value.reason) return shown;
  return shown + Format(" (%zu of %zu of kind %d, %zu more)", value.reason->matchedDigits,
                        value.reason->numberDigits, value.reason->telNumberType,
                        value.reason->moreContacts);
}

}  // namespace

// The telephone owns its state; only tests modify it directly.
CTelephoneDesk::CTelephoneDesk(int appVersion)
    : phone(
          {records, *this, *this, *this, *this, *this, *this, configuration, *this, *this, m_log}),
      state(const_cast<TelephoneState&>(phone.State())) {
  phone.SetAppVersion(appVersion);
  m_log.SetEnabled(true);
}

void CTelephoneDesk::BeQuiet() {
  m_log.SetEnabled(false);
}

std::vector<std::string> CTelephoneDesk::Journal() {
  return std::exchange(m_journal, {});
}

std::vector<std::string> CTelephoneDesk::Deeds() {
  std::vector<std::string> deeds = Journal();
  std::erase_if(deeds, [](const std::string& line) { return line.starts_with("log: "); });
  return deeds;
}

void CTelephoneDesk::Status(uint8_t line1, uint8_t line2, uint8_t cell, uint8_t dial,
                            uint8_t cellSub, uint8_t result) {
  records.status = {result, line1, line2, cell, dial, cellSub};
  phone.Events().OnEventGet(5100, 0);
}

void CTelephoneDesk::Ring(uint8_t lineType) {
  records.incomingCall[static_cast<size_t>(SlotFromLineType(lineType))] = {lineType, 2, 2,
                                                                           2,        0, 0x0D};
  phone.Events().OnEventGet(5101, lineType);
}

void CTelephoneDesk::CallerId(uint8_t lineType, std::string_view number, std::string_view name,
                              uint8_t unitNo) {
  CallerIdRecord& record = records.callerId[static_cast<size_t>(SlotFromLineType(lineType))];
  std::fill_n(record.number, sizeof record.number, '\0');
  std::fill_n(record.name, sizeof record.name, '\0');
  number.copy(record.number, 24);
  name.copy(record.name, 16);
  record.lineType = lineType;
  record.lineUnitNo = unitNo;
  phone.Events().OnEventGet(5102, lineType);
}

void CTelephoneDesk::SetStates(uint8_t line1, uint8_t line2, uint8_t cell) {
  state.record.line1State = line1;
  state.record.line2State = line2;
  state.record.cellState = cell;
}

void CTelephoneDesk::Note(std::string line) {
  if (m_log.IsEnabled()) m_journal.push_back(std::move(line));
}

void CTelephoneDesk::WriteLine(std::string_view text) noexcept {
  Note("log: " + std::string(text.substr(0, text.size() - 1)));
}

bool CTelephoneDesk::PostDeviceEvent(DeviceEvent, uint8_t) noexcept {
  return false;
}

bool CTelephoneDesk::PostRequest(WindowRequest request, uint32_t parameter) noexcept {
  ++posts;
  Note("post " + std::to_string(static_cast<uint32_t>(request)) + " " + std::to_string(parameter));
  return !postsFail;
}

void CTelephoneDesk::SetDialText(std::wstring_view text) {
  Note("box '" + AnsiFromWide(text) + "'");
}

void CTelephoneDesk::Fill(const CallerValue& name, const CallerValue& number, int slot) {
  Note("fill " + quor::Show(name) + " " + quor::Show(number) + " " + std::to_string(slot));
}

void CTelephoneDesk::Follow(uint8_t line1, uint8_t line2, uint8_t cell) {
  Note("follow " + std::to_string(line1) + std::to_string(line2) + std::to_string(cell));
}

// The entry ID of a fake contact is the number that found it.
std::optional<CallerMatch> CTelephoneDesk::Look(const std::map<std::string, Contact>& where,
                                                const char* what, std::string_view number,
                                                bool check) {
  Note(what + std::string(check ? " checked " : " unchecked ") + std::string(number));
  if (whileLookingUp) std::exchange(whileLookingUp, nullptr)();
  const auto contact = where.find(std::string(number));
  if (contact == where.end()) return std::nullopt;
  return CallerMatch{contact->first, {3, 7, number.size(), 2}, nullptr};
}

std::optional<CallerMatch> CTelephoneDesk::FindPhoneNumber(std::string_view number, bool check) {
  return Look(found, "find", number, check);
}

std::optional<CallerMatch> CTelephoneDesk::SearchPhoneNumber(std::string_view number, bool check) {
  return Look(searched, "search", number, check);
}

const CTelephoneDesk::Contact& CTelephoneDesk::Opened(std::string_view entryId) const {
  const auto contact = found.find(std::string(entryId));
  return contact != found.end() ? contact->second : searched.at(std::string(entryId));
}

std::optional<std::wstring> CTelephoneDesk::FindContactFileAs(const CallerMatch& match) {
  const Contact& contact = Opened(match.entryId);
  return contact.readable ? std::optional(contact.fileAs) : std::nullopt;
}

std::optional<std::wstring> CTelephoneDesk::FindContactPhoneNumber(const CallerMatch& match) {
  const Contact& contact = Opened(match.entryId);
  return contact.readable && match.reason.telNumberType == 3 ? std::optional(contact.number)
                                                             : std::nullopt;
}

FormResult CTelephoneDesk::DisplayContact(std::string_view entryId) {
  Note("form " + std::string(entryId));
  return Opened(entryId).form;
}

FormResult CTelephoneDesk::DisplayNewContact(std::wstring_view number) {
  Note("new form '" + AnsiFromWide(number) + "'");
  return newForm;
}

}  // namespace quor
