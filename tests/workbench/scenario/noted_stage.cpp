#include "tests/workbench/scenario/noted_stage.h"

#include <gtest/gtest.h>

#include "workbench/scenario/bytes.h"

namespace quor::workbench {

namespace {

std::string Range(const FailingCalls& calls) {
  return std::to_string(calls.firstCall) + "-" + std::to_string(calls.lastCall) + " status " +
         std::to_string(calls.status);
}

}  // namespace

std::string CNotedStage::Play(const std::string& scenario) {
  m_failure.clear();
  CRun run(Stages(), *this, *this);
  const bool good = run.Play(ParseScript(scenario, version));
  EXPECT_EQ(good, m_failure.empty());
  return m_failure;
}

uint32_t CNotedStage::Create() {
  loaded = true;
  return Note("create");
}

uint32_t CNotedStage::Connect(int mode) {
  connected = true;
  return Note("connect " + std::to_string(mode));
}

uint32_t CNotedStage::Disconnect(int mode) {
  connected = false;
  return Note("disconnect " + std::to_string(mode));
}

uint32_t CNotedStage::CustomUi(const std::string& ribbonId, std::optional<std::string>& document) {
  if (ribbonId == "Microsoft.Outlook.Explorer") document = "<customUI/>";
  return Note("custom ui " + ribbonId);
}

uint32_t CNotedStage::CallRibbon(const RibbonCall& call, std::string& answer) {
  answer = call.text.value_or("nothing");
  return Note("callback " + call.callback + ' ' + call.control + ' ' +
              std::to_string(call.index.value_or(0)) + ' ' +
              std::to_string(static_cast<int>(call.form)));
}

void CNotedStage::Unload() {
  loaded = false;
  Note("unload");
}

bool CNotedStage::PumpUntil(const std::function<bool()>& done, unsigned milliseconds) {
  for (unsigned passed = 0; passed < milliseconds; passed += 100) {
    if (done()) return true;
    ++m_polls;
    Note("poll");
  }
  return done();
}

void CNotedStage::Poll() {
  use.blocks += moreAtPoll.blocks;
  use.bytes += moreAtPoll.bytes;
  use.handles += moreAtPoll.handles;
  use.gdiObjects = *use.gdiObjects + moreAtPoll.gdiObjects.value_or(0);
  use.windows += moreAtPoll.windows;
  Note("poll now");
}

void CNotedStage::FailSystemFunction(const std::string& function, const FailingCalls& calls) {
  Note("fail system " + function + " " + Range(calls));
}

void CNotedStage::InstallLibrary(Library library) {
  Note(library == Library::Missing ? "library missing" : "library old");
}

void CNotedStage::Plug(const DeviceStrings& strings) {
  std::string note = "plug";
  for (const auto& string : strings)
    note += " " + string.value_or("(none)");
  Note(note);
}

void CNotedStage::Queue(const std::vector<Piece>& pieces) {
  std::string note = "queue";
  for (const Piece& piece : pieces) {
    note += " +" + std::to_string(piece.delay) + ": " + FormatHex(piece.bytes);
  }
  Note(note);
}

void CNotedStage::Send(const Bytes& indication) {
  Note("send " + FormatHex(indication));
}

void CNotedStage::ReportQueueStatus(uint32_t status, std::optional<uint32_t> count,
                                    unsigned calls) {
  Note("report " + std::to_string(status) + " " + (count ? std::to_string(*count) : "true") + " x" +
       std::to_string(calls));
}

void CNotedStage::FailFunction(const std::string& function, const FailingCalls& calls) {
  Note("fail " + function + " " + Range(calls));
}

void CNotedStage::ShortenFunction(const std::string& function, const FailingCalls& calls,
                                  unsigned bytes) {
  Note("shorten " + function + " " + Range(calls) + " to " + std::to_string(bytes));
}

void CNotedStage::ChangeContact(const std::string& contact, const std::string& property,
                                const std::string& value) {
  Note("change " + contact + "." + property + "=" + value);
}

void CNotedStage::AddContact(const std::string& folder, const std::string& vcard) {
  Note("add to " + folder + ": " + vcard);
}

void CNotedStage::MoveContact(const std::string& contact, const std::string& folder) {
  Note("move " + contact + " to " + folder);
}

void CNotedStage::FailMember(const std::string& member, const FailingCalls& calls) {
  Note("fail member " + member + " " + Range(calls));
}

void CNotedStage::DuringMember(const std::string& member, unsigned nth,
                               std::function<void()> action) {
  Note("during " + member + " " + std::to_string(nth));
  action();
}

void CNotedStage::Click(const std::string& inspector, const std::vector<std::string>& path) {
  std::string note = "click " + inspector;
  for (const std::string& part : path)
    note += "/" + part;
  Note(note);
}

void CNotedStage::DeleteControl(const std::vector<std::string>& path) {
  Note("delete " + path.back());
}

void CNotedStage::Type(const std::string& control, const std::string& text) {
  Note("type " + control + ": " + text);
}

void CNotedStage::Pick(const std::string& control, const std::string& item) {
  Note("pick " + control + ": " + item);
}

std::string CNotedStage::Picture(const PictureOrder& order) {
  std::string path = order.name + " " + std::to_string(order.scale);
  for (const std::string& part : order.menu)
    path += " > " + part;
  return path + (order.dark ? " dark" : "");
}

void CNotedStage::Press(const std::string& title, const std::string& button) {
  Note("press " + title + ": " + button);
}

void CNotedStage::Enter(const std::string& title, int field, const std::string& text) {
  Note("enter " + title + " " + std::to_string(field) + ": " + text);
}

void CNotedStage::WriteFile(const std::string& path, const std::string& content) {
  files[path] = content;
  Note("write " + path);
}

void CNotedStage::CopyIn(const std::string& from, const std::string& path) {
  Note("copy " + from + " to " + path);
}

std::optional<std::string> CNotedStage::ReadFile(const std::string& path) {
  const auto found = files.find(path);
  if (found == files.end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> CNotedStage::ListFiles() {
  std::vector<std::string> names;
  for (const auto& [name, content] : files)
    names.push_back(name);
  return names;
}

}  // namespace quor::workbench
