#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vexmoor {

using Path = std::filesystem::path;

/// A path in few bytes, for what is kept by the thousand: a Path holds its components beside its
/// text, ten times as much.
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

/// The path made absolute, without ".", doubled or trailing slashes. Where ".." occurs, what stands
/// before it is resolved as the kernel does; a final symbolic link is never followed. A prefix that
/// cannot be resolved stays as it is, for the operation on the path to fail with its own error; so
/// does a relative path where the current folder is gone, and an empty one, which names nothing.
Path standardized(const Path& path);

/// Whether the last component, trailing slashes aside, is "." or "..".
bool endsInDots(const Path& path);

/// The last component as bytes; "/" for the root.
std::string lastComponent(const Path& path);

/// What stands after the last dot of the last component, trailing slashes aside. None (empty) where
/// only a dot or nothing stands before it, where nothing stands after it, or where it has a space
/// and so is rather part of a sentence. A view of the path's bytes.
std::string_view pathExtension(std::string_view path);

/// "file://" and the path's bytes, percent-encoded but for RFC 2396 unreserved characters and "/".
std::string fileUri(const Path& path);

/// The local absolute path of a "file:" URI (RFC 8089: no host, or "localhost"); nothing for
/// anything else, a malformed escape or a NUL byte.
std::optional<Path> pathFromFileUri(std::string_view uri);

/// Percent-encoding of all bytes but RFC 2396 unreserved characters and "/".
std::string percentEncoded(std::string_view bytes);

/// Decodes %XX and nothing else; nothing where an escape is malformed or there is a NUL byte.
std::optional<std::string> percentDecoded(std::string_view text);

bool isValidUtf8(std::string_view bytes);

/// Text to show: bytes that are not UTF-8 become U+FFFD.
std::string displayText(std::string_view bytes);

/// A path as JSON holds it: its text where that is UTF-8, its file URI where not.
std::string pathToJsonText(std::string_view bytes);
Path pathFromJsonText(const std::string& text);

} // namespace vexmoor
