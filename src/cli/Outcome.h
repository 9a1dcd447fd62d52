#pragma once

#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "intake/BatchReport.h"

#include <concepts>
#include <string>
#include <variant>

namespace vexmoor {

/// Why a command did not do its work, and what it ends with.
struct Refusal {
    /// `tell` makes the sentence from text(): once for people, once in English for JSON.
    template <std::invocable Tell>
    Refusal(int exitStatus, const char* codeName, const Tell& tell)
        : status(exitStatus), code(codeName), sentence(tell()), english(inEnglish(tell)) {}

    /// The same for a sentence that ends with what describe() says of the error.
    template <typename Tell>
    Refusal(int exitStatus, const char* codeName, const Error& error, const Tell& tell)
        : Refusal(exitStatus, codeName, [&] { return tell(describe(error)); }) {
        path = error.path;
    }

    int status;
    std::string code; ///< what programs know it by (docs/command-line.md); it never changes
    std::string sentence;
    std::string english;
    Path path{}; ///< of the file at fault, if there is one

  private:
    template <typename Tell>
    static std::string inEnglish(const Tell& tell) {
        const InEnglish forMachines;
        return tell();
    }
};

/// The JSON document of a command that was refused: "error", "code", "message", "path".
nlohmann::ordered_json toJson(const Refusal& refusal);

/// What became of a command that changes something. Of a setting the report is empty.
using Outcome = std::variant<BatchReport, Refusal>;

} // namespace vexmoor
