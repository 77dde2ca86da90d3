#ifndef QUOR_RESOURCES_STRING_TABLE_H
#define QUOR_RESOURCES_STRING_TABLE_H

#include <string>

namespace quor {

// The texts of the add-in in the interface language, by the numbers of resources/resource_ids.h.
class IStringTable {
 public:
  // Empty when no language has the text.
  virtual std::wstring Text(int id) const = 0;

 protected:
  ~IStringTable() = default;
};

}  // namespace quor

#endif
