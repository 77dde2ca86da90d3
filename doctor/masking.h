#ifndef QUOR_DOCTOR_MASKING_H
#define QUOR_DOCTOR_MASKING_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quor::doctor {

// Takes telephone numbers and people's names out of a diagnostic log, so that it can be sent to
// somebody. One number keeps one placeholder of its length throughout, in the frames as in the
// text, so that one caller stays one caller and the frames can be replayed: 0551234567 becomes
// 0000000001.
class CMasking {
 public:
  // A log line as the add-in wrote it, with or without its end.
  std::string Line(std::string_view line);
  // A text of any kind: takes the user's name out of paths.
  static std::string Paths(std::string_view text);

 private:
  std::string Message(std::string_view message);
  std::string Dump(std::string_view tag, std::vector<uint8_t> bytes);
  void CallerId(std::vector<uint8_t>& bytes);
  void CallRequest(std::vector<uint8_t>& bytes);
  void Name(std::vector<uint8_t>& bytes, size_t offset, size_t size);
  std::string Text(std::string_view text);
  // The text with each digit replaced; same length.
  std::string Number(std::string_view text);

  std::map<std::string, std::string> m_numbers;
  std::map<std::string, std::string> m_names;
};

}  // namespace quor::doctor

#endif
