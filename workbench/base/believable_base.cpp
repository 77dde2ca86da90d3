#include "workbench/base/believable_base.h"

#include <utility>

namespace quor::workbench {

namespace {

constexpr uint8_t kLine1 = 0x01;
constexpr uint8_t kLine2 = 0x02;
constexpr uint8_t kFirstCell = 0x11;
constexpr uint8_t kLastCell = 0x14;

const std::string kNoNumber;

}  // namespace

CBelievableBase::Side* CBelievableBase::SideOf(uint8_t lineType) {
  if (lineType == kLine1) return &m_sides[0];
  if (lineType == kLine2) return &m_sides[1];
  const bool isCell = lineType >= kFirstCell && lineType <= kLastCell;
  return isCell ? &m_sides[2] : nullptr;
}

const CBelievableBase::Side* CBelievableBase::SideOf(uint8_t lineType) const {
  return const_cast<CBelievableBase*>(this)->SideOf(lineType);
}

uint8_t CBelievableBase::State(uint8_t lineType) const {
  if (m_ringing != 0) return kBusy;
  const Side* side = SideOf(lineType);
  return side ? side->state : 0;
}

const std::string& CBelievableBase::NumberInCall(uint8_t lineType) const {
  const Side* side = SideOf(lineType);
  return side && side->state == kInCall ? side->number : kNoNumber;
}

LineReport CBelievableBase::Report() const {
  LineReport report;
  report.line1 = State(kLine1);
  report.line2 = State(kLine2);
  report.cell = State(kFirstCell);
  report.cellSub = m_cells.info;
  return report;
}

void CBelievableBase::Reset() {
  m_sides = {};
  m_ringing = 0;
  m_refuseNext = false;
}

void CBelievableBase::OnRequest(std::span<const uint8_t> bytes) {
  const BaseRequest request = ReadRequest(bytes);
  switch (request.kind) {
    case BaseRequest::Kind::Startup:
      m_line.Send(CellRegistrationFrame(m_cells));
      SendStatus();
      break;
    case BaseRequest::Kind::Call:
      Call(request);
      break;
    case BaseRequest::Kind::OnHook:
      if (!HangUp(request.lineType)) SendStatus(true);
      break;
    case BaseRequest::Kind::Unknown:
      break;
  }
}

void CBelievableBase::Call(const BaseRequest& request) {
  if (m_ringing != 0 && request.number.empty()) return Answer(request.lineType);
  Side* side = SideOf(request.lineType);
  const bool refused = std::exchange(m_refuseNext, false);
  if (!side || m_ringing != 0 || side->state != kIdle || refused) return SendStatus(true);
  *side = {kInCall, request.lineType, request.number};
  SendStatus();
}

void CBelievableBase::Answer(uint8_t lineType) {
  Side* side = SideOf(lineType);
  if (lineType != m_ringing || !side) return SendStatus(true);
  m_ringing = 0;
  *side = {kInCall, lineType, m_callerNumber};
  SendStatus();
}

bool CBelievableBase::Ring(const CallerIdReport& caller) {
  const Side* side = SideOf(caller.lineType);
  if (!side || m_ringing != 0 || side->state != kIdle) return false;
  m_ringing = caller.lineType;
  m_callerNumber = caller.number;
  m_line.Send(ReceiveCallFrame(caller.lineType, Report()));
  m_line.Send(CallerIdFrame(caller));
  return true;
}

bool CBelievableBase::GiveUpRinging() {
  if (m_ringing == 0) return false;
  m_line.Send(ClosePopupFrame(std::exchange(m_ringing, uint8_t{0})));
  SendStatus();
  return true;
}

bool CBelievableBase::HangUp(uint8_t lineType) {
  Side* side = SideOf(lineType);
  if (!side || side->state != kInCall) return false;
  *side = {};
  SendStatus();
  return true;
}

bool CBelievableBase::UseElsewhere(uint8_t lineType, bool use) {
  Side* side = SideOf(lineType);
  if (!side || side->state != (use ? kIdle : kBusy)) return false;
  side->state = use ? kBusy : kIdle;
  SendStatus();
  return true;
}

void CBelievableBase::SetCells(uint8_t reachable, const std::array<std::string, 4>& names) {
  m_cells.info = reachable;
  m_cells.names = names;
}

}  // namespace quor::workbench
