#ifndef QUOR_DEVICE_LINK_HEALTH_H
#define QUOR_DEVICE_LINK_HEALTH_H

#include <cstdint>

namespace quor {

// What tells a loose cable from a dead base. Counts since the link was made; they wrap.
struct LinkHealth {
  uint32_t framesRead = 0;
  uint32_t badStartBytes = 0;
  uint32_t unknownTypes = 0;
  uint32_t badDelimiters = 0;  // such a frame is used all the same
  uint32_t overruns = 0;
  uint32_t connections = 0;     // times a tick has opened the base; all but the first reconnect
  uint32_t longestPoll = 0;     // milliseconds that one tick took
  uint32_t connectedSince = 0;  // milliseconds tick; counts only while the base is open
};

}  // namespace quor

#endif
