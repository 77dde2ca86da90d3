#ifndef QUOR_WORKBENCH_BASE_BELIEVABLE_BASE_H
#define QUOR_WORKBENCH_BASE_BELIEVABLE_BASE_H

#include <array>
#include <span>
#include <string>

#include "workbench/base/base_frames.h"

namespace quor::workbench {

// Where the base's indications go: on the wire.
class IIndicationLine {
 public:
  virtual void Send(const Bytes& indication) = 0;

 protected:
  ~IIndicationLine() = default;
};

// A base that behaves: it answers the add-in's requests by moving its lines through their states,
// and lets the person at its panel ring, pick up and hang up.
//
//   a call goes out         request "call", number     -> the line is in a call (3)
//   a call comes in         Ring                       -> all lines busy (2), caller ID
//                           request "call", no number  -> the ringing line is in a call, the others
//                           idle
//   a call ends             request "on hook", or HangUp -> the line is idle (1)
//   nothing to be had       the line is not idle, or RefuseNextCall -> the reply says busy
class CBelievableBase {
 public:
  // Line states as the wire has them.
  static constexpr uint8_t kIdle = 1;
  static constexpr uint8_t kBusy = 2;
  static constexpr uint8_t kInCall = 3;

  explicit CBelievableBase(IIndicationLine& line) : m_line(line) {}

  // After every plugging in; calls do not survive.
  void Reset();
  // One request as the add-in wrote it.
  void OnRequest(std::span<const uint8_t> bytes);

  // What the person does. False where the line's state does not allow it.
  bool Ring(const CallerIdReport& caller);
  bool GiveUpRinging();                           // the caller hangs up before anybody answers
  bool HangUp(uint8_t lineType);                  // the other party of a call
  bool UseElsewhere(uint8_t lineType, bool use);  // another handset takes or leaves the line
  void RefuseNextCall() { m_refuseNext = true; }
  // Mobiles that are in reach, from bit 0 for Cell1, with their names.
  void SetCells(uint8_t reachable, const std::array<std::string, 4>& names);

  uint8_t RingingLine() const { return m_ringing; }  // 0: none
  uint8_t State(uint8_t lineType) const;
  const std::string& NumberInCall(uint8_t lineType) const;

 private:
  // Fixed line 1, fixed line 2, the mobile side as a whole.
  struct Side {
    uint8_t state = kIdle;
    uint8_t lineType = 0;  // of the call on it
    std::string number;
  };

  Side* SideOf(uint8_t lineType);
  const Side* SideOf(uint8_t lineType) const;
  LineReport Report() const;
  void SendStatus(bool busyReply = false);
  void Call(const BaseRequest& request);
  void Answer(uint8_t lineType);

  IIndicationLine& m_line;
  std::array<Side, 3> m_sides;
  uint8_t m_ringing = 0;
  std::string m_callerNumber;
  bool m_refuseNext = false;
  CellRegistration m_cells;
};

}  // namespace quor::workbench

#endif
