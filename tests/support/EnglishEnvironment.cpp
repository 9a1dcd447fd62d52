#include <cstdlib>

// Makes programs print English in any developer's locale.

namespace vexmoor::test {
namespace {

const bool isEnglish = ::setenv("LC_ALL", "C.UTF-8", 1) == 0 && ::unsetenv("LANGUAGE") == 0;

} // namespace
} // namespace vexmoor::test
