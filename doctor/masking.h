#ifndef QUOR_DOCTOR_MASKING_H
#define QUOR_DOCTOR_MASKING_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quor::doctor {

// Removes telephone numbers and people's names from a diagnostic log, so that users can send it.
// Each number gets one placeholder of the same length, in frames and texts alike, so that calls
// from one caller stay recognisable and the frames can be replayed: 0551234567 becomes 0000000001.
class CMasking {
 public:
  // Masks a log line, with or without its line end.
  std::string Line(std::string_view line);
  // Removes the user's name from paths in a text: what follows "\Users\", and each folder that has
  // this name.
  static std::string Paths(std::string_view text, std::string_view userName = {});

 private:
  std::string Message(std::string_view message);
  std::string Dump(std::string_view tag, std::vector<uint8_t> bytes);
  void CallerId(std::vector<uint8_t>& bytes);
  void CallRequest(std::vector<uint8_t>& bytes);
  void Name(std::vector<uint8_t>& bytes, size_t offset, size_t size);
  std::string CellNames(std::string text);
  std::string Placeholder(const std::string& name, size_t size);
  std::string Text(std::string_view text);
  // Replaces each digit of the text; the length stays the same.
  std::string Number(std::string_view text);

  std::map<std::string, std::string> m_numbers;
  std::map<std::string, std::string> m_names;
};

}  // namespace quor::doctor

#endif
