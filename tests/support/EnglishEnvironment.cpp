#include <cstdlib>

// Tests read in English what programs print, whatever the developer speaks.

namespace vexmoor::test {
namespace {

const bool isEnglish = ::setenv("LC_ALL", "C.UTF-8", 1) == 0 && ::unsetenv("LANGUAGE") == 0;

} // namespace
} // namespace vexmoor::test
