#ifndef QUOR_MODULE_LOG_STAMP_H
#define QUOR_MODULE_LOG_STAMP_H

#include <string>

namespace quor {

// Local date and time.
struct LogTime {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

// The prefix of each line: "2009/03/07 08:05:09.042 ", with the trailing blank.
std::string LogStamp(const LogTime& time);

// Name of the day's log file: "catlog20090307.txt".
std::string LogFileName(const LogTime& time);

}  // namespace quor

#endif
