#pragma once

namespace vexmoor::test {

/// While it lives, this process is the parent of all that the programs it started leave behind. It
/// kills every child of this process at its end: nothing writes any more then.
class Descendants {
  public:
    Descendants();
    ~Descendants();
    Descendants(const Descendants&) = delete;
    Descendants& operator=(const Descendants&) = delete;
};

} // namespace vexmoor::test
