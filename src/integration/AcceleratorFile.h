#pragma once

#include "base/Path.h"
#include "base/Result.h"
#include "integration/AcceleratorText.h"
#include "integration/CreatedPaths.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// The Ctrl+Backspace binding of our menu entry in a file manager's configuration. Changes only our
/// own binding, and leaves a file alone that cannot be read or parsed. Blocks on file access; not
/// thread-safe.
class AcceleratorFile {
  public:
    /// `needsRestart`: only new processes of the file manager notice a change.
    AcceleratorFile(Path file, std::unique_ptr<AcceleratorText> text, bool needsRestart);

    /// Adds another file that the binding needs.
    void alsoNeeds(Path file, std::unique_ptr<AcceleratorText> text);

    [[nodiscard]] const Path& file() const { return m_parts.back().file; }

    /// Fails if the file cannot be read, or with `bad_message` if it cannot be parsed.
    [[nodiscard]] Result<AcceleratorStatus> status() const;

    /// Adds our binding if the status is `notInstalled`; otherwise does nothing.
    Result<void> install(CreatedPaths& created) const;

    /// Removes our binding; keeps a key that the user chose for our entry.
    Result<void> remove(CreatedPaths& created) const;

    /// Returns a validity without `since` if the file cannot be read.
    [[nodiscard]] AcceleratorValidity validity() const;

  private:
    struct Part {
        Path file;
        std::unique_ptr<AcceleratorText> text;
    };
    static Result<std::string> read(const Part& part);
    static Result<void> installIn(const Part& part, CreatedPaths& created);
    static Result<void> removeFrom(const Part& part, CreatedPaths& created);

    std::vector<Part> m_parts; ///< the file of the binding is last
    bool m_needsRestart;
};

} // namespace vexmoor
