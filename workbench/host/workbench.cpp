#include "workbench/host/workbench.h"

#include <cmath>
#include <stdexcept>

// clang-format off
#include <windows.h>
#include <objbase.h>
#include <oleauto.h>
// clang-format on

#include "workbench/host/console.h"
#include "workbench/scenario/results.h"

namespace quor::workbench {

namespace {

SessionOptions SessionOf(const Options& options) {
  SessionOptions session;
  session.version = options.outlookVersion;
  return session;
}

std::wstring FolderOf(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\'));
}

std::wstring OwnFolder() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return FolderOf(path);
}

// "call  Items.Item of Contacts (3): ContactItem", plus the error code of a failure; for an event,
// the time that the add-in took.
std::string LineOf(const CallRecord& record) {
  const bool event = record.kind == CallRecord::Kind::Event;
  std::string line = (event ? "    event " : "    call  ") + record.member;
  if (!record.object.empty()) line += " of " + record.object;
  if (!record.arguments.empty()) line += " (" + record.arguments + ")";
  if (!record.result.empty()) line += ": " + record.result;
  if (FAILED(record.code)) line += " = " + ResultName(static_cast<uint32_t>(record.code));
  if (event) line += ", " + std::to_string(std::lround(record.microseconds)) + " us";
  return line;
}

}  // namespace

CWorkbench::CWorkbench(const Options& options, CMessageLoop& loop)
    : m_addIn(FindRegisteredAddIn(WideFromUtf8(options.addIn))),
      m_data(WideFromUtf8(options.dataFolder), options.task == Options::Task::Interactive
                                                   ? CApplicationData::Content::Kept
                                                   : CApplicationData::Content::Deleted),
      m_face(options.outlookVersion, options.painted,
             [this](const std::string& ribbonId) {
               std::optional<std::string> document;
               if (m_host.IsLoaded()) m_host.CustomUi(ribbonId, document);
             }),
      m_outlook(SessionOf(options), m_face),
      m_figureStage(m_outlook.Model(), m_face),
      m_options(m_outlook, loop),
      m_host(m_addIn, loop, m_outlook, m_face, m_options, m_figureStage),
      m_baseStage(FolderOf(m_addIn.modulePath), OwnFolder()),
      m_basePanel(m_baseStage),
      m_screenStage(m_outlook, m_face, m_host, m_options, options.pictureFolder),
      m_evidenceStage(m_data, m_host) {
  m_face.Attach(m_outlook.Session(), &m_basePanel);
  if (options.calls) {
    m_outlook.Model().SetObserver([](const CallRecord& record) { PrintLine(LineOf(record)); });
  }
  if (options.neighbours) {
    for (const Neighbour neighbour :
         {Neighbour::NeverValidates, Neighbour::InvalidatesAgain, Neighbour::MessageHook}) {
      m_host.MoveIn(neighbour);
    }
  }
  m_outlook.OpenExplorer();
  if (options.registerRunning) m_running.emplace(m_outlook.Application());
}

Stage CWorkbench::Stages() {
  return {m_host, m_baseStage, m_outlook, m_screenStage, m_evidenceStage, m_data, m_figureStage};
}

}  // namespace quor::workbench
