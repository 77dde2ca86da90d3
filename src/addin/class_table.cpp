#include "com/class_table.h"

#include "addin/addin.h"
#include "module/identifiers.h"

namespace quor {

std::span<const ClassEntry> ClassTable() {
  static const ClassEntry kClasses[] = {{kAddinClsid, CAddin::Create},
                                        {kPropertyPageClsid, CAddin::CreateOptionsPage}};
  return kClasses;
}

}  // namespace quor
