#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vexmoor {

using Path = std::filesystem::path;

/// A compact path for large collections. A std::filesystem::path also stores its components and
/// takes about ten times the memory.
class StoredPath {
  public:
    StoredPath() = default;
    StoredPath(const Path& path) : m_bytes(path.native()) {}
    StoredPath(const char* bytes) : m_bytes(bytes) {}
    StoredPath(std::string bytes) : m_bytes(std::move(bytes)) {}

    operator Path() const { return Path(m_bytes); }
    [[nodiscard]] const std::string& native() const { return m_bytes; }
    [[nodiscard]] Path filename() const { return Path(m_bytes).filename(); }

    friend Path operator/(const StoredPath& folder, const Path& name) {
        return Path(folder) / name;
    }
    friend bool operator==(const StoredPath&, const StoredPath&) = default;
    friend bool operator==(const StoredPath& a, const Path& b) { return a.m_bytes == b.native(); }

  private:
    std::string m_bytes;
};

/// Makes the path absolute and removes "." and doubled or trailing slashes. The part before ".." is
/// resolved as the kernel does; a final symbolic link is not followed. Leaves a prefix that cannot
/// be resolved unchanged, so that the later operation reports the error; likewise a relative path
/// if the current folder is gone, and an empty path.
Path standardized(const Path& path);

/// True if the last component is "." or "..", ignoring trailing slashes.
bool endsInDots(const Path& path);

/// Returns the last component as bytes, or "/" for the root.
std::string lastComponent(const Path& path);

/// Returns the extension of the last component, ignoring trailing slashes, as a view of the path's
/// bytes. Returns an empty view if only dots precede the last dot, if nothing follows it, or if the
/// part after it contains a space (it is then probably part of a sentence).
std::string_view pathExtension(std::string_view path);

/// Returns "file://" and the path, percent-encoded except for RFC 2396 unreserved characters and
/// "/".
std::string fileUri(const Path& path);

/// Returns the local absolute path of a "file:" URI (RFC 8089, with no host or "localhost").
/// Returns nullopt for any other URI, a malformed escape or a NUL byte.
std::optional<Path> pathFromFileUri(std::string_view uri);

/// Percent-encodes all bytes except RFC 2396 unreserved characters and "/".
std::string percentEncoded(std::string_view bytes);

/// Decodes %XX escapes only. Returns nullopt for a malformed escape or a NUL byte.
std::optional<std::string> percentDecoded(std::string_view text);

bool isValidUtf8(std::string_view bytes);

/// Returns displayable text, in which U+FFFD replaces bytes that are not UTF-8.
std::string displayText(std::string_view bytes);

/// Returns a path's form in JSON: the path itself if it is UTF-8, otherwise its file URI.
std::string pathToJsonText(std::string_view bytes);
Path pathFromJsonText(const std::string& text);

} // namespace vexmoor
