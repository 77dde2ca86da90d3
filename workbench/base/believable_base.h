#ifndef QUOR_WORKBENCH_BASE_BELIEVABLE_BASE_H
#define QUOR_WORKBENCH_BASE_BELIEVABLE_BASE_H

#include <array>
#include <span>
#include <string>

#include "workbench/base/base_frames.h"

namespace quor::workbench {

// Receives the base's indications.
class IIndicationLine {
 public:
  virtual void Send(const Bytes& indication) = 0;

 protected:
  ~IIndicationLine() = default;
};

// A base that behaves like a real one: it answers the add-in's requests by changing the states of
// its lines, and the user at its panel can ring, answer and hang up.
//
//   a call goes out         request "call", number     -> the line is in a call (3)
//   a call comes in         Ring                       -> all lines busy (2), caller ID
//                           request "call", no number  -> the ringing line is in a call, the others
//                           idle
//   a call ends             request "on hook", or HangUp -> the line is idle (1)
//   a call is refused       the line is not idle, or RefuseNextCall -> the reply says busy
class CBelievableBase {
 public:
  // Line states as sent on the wire.
  static constexpr uint8_t kIdle = 1;
  static constexpr uint8_t kBusy = 2;
  static constexpr uint8_t kInCall = 3;

  explicit CBelievableBase(IIndicationLine& line) : m_line(line) {}

  // Call after each plugging in; ends all calls.
  void Reset();
  // Handles one request of the add-in.
  void OnRequest(std::span<const uint8_t> bytes);

  // The user's actions. False if the line's state does not allow the action.
  bool Ring(const CallerIdReport& caller);
  bool GiveUpRinging();                           // the caller hangs up before anyone answers
  bool HangUp(uint8_t lineType);                  // the other party of a call
  bool UseElsewhere(uint8_t lineType, bool use);  // another handset takes or releases the line
  void RefuseNextCall() { m_refuseNext = true; }
  // Sets the mobiles in reach, bit 0 for Cell1 and so on, and their names.
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
  void SendStatus(bool busyReply = false) { m_line.Send(StatusFrame(busyReply ? 1 : 0, Report())); }
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
