#ifndef QUOR_TOOLBAR_FLAG_SCOPE_H
#define QUOR_TOOLBAR_FLAG_SCOPE_H

#include <utility>

namespace quor {

// Sets a flag while it exists and then restores the flag's earlier value.
class CFlagScope {
 public:
  explicit CFlagScope(bool& flag) noexcept : m_flag(flag), m_before(std::exchange(flag, true)) {}
  ~CFlagScope() { m_flag = m_before; }
  CFlagScope(const CFlagScope&) = delete;
  CFlagScope& operator=(const CFlagScope&) = delete;

 private:
  bool& m_flag;
  bool m_before;
};

}  // namespace quor

#endif
