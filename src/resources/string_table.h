#ifndef QUOR_RESOURCES_STRING_TABLE_H
#define QUOR_RESOURCES_STRING_TABLE_H

#include <string>

namespace quor {

// The add-in's texts in the interface language, by the ids of resources/resource_ids.h.
class IStringTable {
 public:
  // Empty if no language has the text.
  virtual std::wstring Text(int id) const = 0;

 protected:
  ~IStringTable() = default;
};

}  // namespace quor

#endif
