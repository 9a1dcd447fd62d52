#pragma once

namespace vexmoor::test {

/// Makes this process the parent of orphaned descendants during its lifetime. The destructor kills
/// all children, so that nothing writes afterwards.
class Descendants {
  public:
    Descendants();
    ~Descendants();
    Descendants(const Descendants&) = delete;
    Descendants& operator=(const Descendants&) = delete;
};

} // namespace vexmoor::test
