#pragma once

#include "base/Text.h"
#include "disposal/DisposalError.h"
#include "intake/BatchReport.h"

#include <concepts>
#include <string>
#include <variant>

namespace vexmoor {

/// Why a command was not carried out, and its exit status.
struct Refusal {
    /// `tell` builds the sentence with text(); it is called once for the user's language and once
    /// in English for JSON.
    template <std::invocable Tell>
    Refusal(int exitStatus, const char* codeName, const Tell& tell)
        : status(exitStatus), code(codeName), sentence(tell()), english(inEnglish(tell)) {}

    /// Like above, for a sentence that ends with describe() of the error.
    template <typename Tell>
    Refusal(int exitStatus, const char* codeName, const Error& error, const Tell& tell)
        : Refusal(exitStatus, codeName, [&] { return tell(describe(error)); }) {
        path = error.path;
    }

    int status;
    std::string code; ///< stable code for programs (docs/command-line.md)
    std::string sentence;
    std::string english;
    Path path{}; ///< the file at fault, if any

  private:
    template <typename Tell>
    static std::string inEnglish(const Tell& tell) {
        const InEnglish forMachines;
        return tell();
    }
};

/// Returns the JSON document of a refused command: "error", "code", "message", "path".
nlohmann::ordered_json toJson(const Refusal& refusal);

/// The result of a command that changes something. The report is empty for a setting.
using Outcome = std::variant<BatchReport, Refusal>;

} // namespace vexmoor
