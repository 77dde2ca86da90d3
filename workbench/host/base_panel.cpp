#include "workbench/host/base_panel.h"

#include <optional>

#include "workbench/office/value.h"

namespace quor::workbench {

namespace {

constexpr uint8_t kLine1 = 0x01;
constexpr uint8_t kLine2 = 0x02;
constexpr uint8_t kCell1 = 0x11;

enum Button { kPlug, kUnplug, kRingLine1, kRingLine2, kRingCell, kGiveUp, kHangUp, kRefuse, kUse };

PanelLine LineOf(const CBelievableBase& base, const wchar_t* name, uint8_t lineType) {
  PanelLine line;
  line.text = name;
  const uint8_t state = base.State(lineType);
  if (base.RingingLine() == lineType) {
    line.led = Led::Amber;
    line.text += L": rings";
  } else if (state == CBelievableBase::kInCall) {
    line.led = Led::Green;
    line.text += L": call " + WideFromUtf8(base.NumberInCall(lineType));
  } else if (state == CBelievableBase::kBusy) {
    line.led = Led::Red;
    line.text += L": busy";
  } else {
    line.led = Led::Off;
    line.text += L": idle";
  }
  return line;
}

std::optional<uint8_t> LineInCall(const CBelievableBase& base) {
  for (const uint8_t lineType : {kLine1, kLine2, kCell1}) {
    if (base.State(lineType) == CBelievableBase::kInCall) return lineType;
  }
  return std::nullopt;
}

bool Ring(CBelievableBase& base, uint8_t lineType, const char* name, const char* number) {
  CallerIdReport caller;
  caller.lineType = lineType;
  caller.name = name;
  caller.number = number;
  return base.Ring(caller);
}

bool IsUsedElsewhere(const CBelievableBase& base) {
  return base.RingingLine() == 0 && base.State(kLine2) == CBelievableBase::kBusy;
}

bool Do(CBelievableBase& base, int button) {
  switch (button) {
    case kRingLine1:
      return Ring(base, kLine1, "ANNA SMITH", "2125550187");
    case kRingLine2:
      return Ring(base, kLine2, "UNKNOWN", "01715550123");
    case kRingCell:
      return Ring(base, kCell1, "", "34915554433");
    case kGiveUp:
      return base.GiveUpRinging();
    case kHangUp:
      return LineInCall(base) && base.HangUp(*LineInCall(base));
    case kUse:
      return base.UseElsewhere(kLine2, !IsUsedElsewhere(base));
    case kRefuse:
      base.RefuseNextCall();
      return true;
    default:
      return false;
  }
}

}  // namespace

PanelFace CBasePanel::Face() {
  PanelFace face;
  if (!m_base.IsAlive()) return face;
  const CBelievableBase& base = m_base.Enliven();
  const bool plugged = m_base.Base().DeviceCount() != 0;
  face.title = L"Telephone base";
  face.lines.push_back({plugged ? L"Plugged in" : L"Unplugged", plugged ? Led::Green : Led::Off});
  face.lines.push_back(LineOf(base, L"Line 1", kLine1));
  face.lines.push_back(LineOf(base, L"Line 2", kLine2));
  face.lines.push_back(LineOf(base, L"Mobiles", kCell1));
  const bool rings = base.RingingLine() != 0;
  const auto canRing = [&](uint8_t lineType) {
    return plugged && !rings && base.State(lineType) == CBelievableBase::kIdle;
  };
  const bool used = IsUsedElsewhere(base);
  face.buttons = {
      {kPlug, L"Plug in", !plugged, L"Connects the base to the computer."},
      {kUnplug, L"Pull out", plugged, L"Pulls the base's cable out of the computer."},
      {kRingLine1, L"Ring line 1", canRing(kLine1),
       L"Anna Smith calls line 1; the base sends her number and name."},
      {kRingLine2, L"Ring line 2", canRing(kLine2),
       L"01715550123 calls line 2; the base sends no name, but the number is in the contacts."},
      {kRingCell, L"Ring mobile 1", canRing(kCell1), L"34915554433 calls the first mobile."},
      {kGiveUp, L"Caller gives up", plugged && rings,
       L"The caller hangs up before anybody answers."},
      {kHangUp, L"End the call", plugged && LineInCall(base).has_value(),
       L"The other party hangs up."},
      {kRefuse, L"Next is busy", plugged,
       L"The base refuses the next call that Outlook asks for: the line is busy."},
      {kUse, used ? L"Free line 2" : L"Use line 2", used || canRing(kLine2),
       used ? L"The handset on line 2 hangs up."
            : L"A handset takes line 2; Outlook cannot use it."},
  };
  return face;
}

void CBasePanel::Press(int button) {
  if (button == kPlug) {
    m_base.Enliven().Reset();
    m_base.Base().Plug();
  } else if (button == kUnplug && m_base.Base().DeviceCount() != 0) {
    m_base.Base().Unplug();
  } else if (!Do(m_base.Enliven(), button)) {
    throw CUserActionError("the base cannot do that now");
  }
}

}  // namespace quor::workbench
