#pragma once

#include "base/Path.h"
#include "base/Result.h"
#include "integration/AcceleratorText.h"
#include "integration/CreatedPaths.h"

#include <memory>
#include <vector>

namespace vexmoor {

/// Ctrl+Backspace on our menu entry, in the configuration of one file manager. Changes nothing but
/// our own binding; a file that cannot be read, or read as what it should be, is left alone. Blocks
/// on file access; one thread at a time.
class AcceleratorFile {
  public:
    /// `needsRestart`: only a new process of the file manager notices a change.
    AcceleratorFile(Path file, std::unique_ptr<AcceleratorText> text, bool needsRestart);

    /// Another file without which the binding has no effect.
    void alsoNeeds(Path file, std::unique_ptr<AcceleratorText> text);

    [[nodiscard]] const Path& file() const { return m_parts.back().file; }

    /// Fails if the file cannot be read or, with `bad_message`, is not such a file.
    [[nodiscard]] Result<AcceleratorStatus> status() const;

    /// Does nothing unless the status is `notInstalled`.
    Result<void> install(CreatedPaths& created) const;

    /// Takes our binding away; a key that the user gave our entry stays.
    Result<void> remove(CreatedPaths& created) const;

    /// nullopt in it if the file cannot be seen.
    [[nodiscard]] AcceleratorValidity validity() const;

  private:
    struct Part {
        Path file;
        std::unique_ptr<AcceleratorText> text;
    };
    static Result<std::string> read(const Part& part);
    static Result<void> installIn(const Part& part, CreatedPaths& created);
    static Result<void> removeFrom(const Part& part, CreatedPaths& created);

    std::vector<Part> m_parts; ///< the binding's own last
    bool m_needsRestart;
};

} // namespace vexmoor
