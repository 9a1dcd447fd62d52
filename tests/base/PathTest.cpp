#include "base/Path.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace vexmoor::test {
namespace {

namespace fs = std::filesystem;

TEST(Path, StandardizesAsTheKernelResolves) {
    const TemporaryDirectory root;
    fs::create_directories(root / "far/deep");
    fs::create_directories(root / "near");
    root.write("near/file", "");
    fs::create_directory_symlink(root / "far/deep", root / "near/link");
    const struct {
        const char* given;
        const char* expected;
    } cases[] = {
        {"near/file", "near/file"},
        {"near//./file", "near/file"},
        {"near/", "near"},
        {"near/link", "near/link"},
        {"near/link///", "near/link"}, // the link, not its target
        {"near/link/.", "near/link"},
        {"near/link/..", "far"}, // not near, as plain text removal would return
        {"near/link/../x", "far/x"},
        {"near/../far/./deep/..", "far"},
        {"near/link/../../near/link", "near/link"},
        {"missing/../near", "missing/../near"}, // fails later, on use
        {"near/file/../link", "near/file/../link"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(standardized(root.path().native() + "/" + test.given), root / test.expected)
            << test.given;
    EXPECT_EQ(standardized("/"), "/");
    EXPECT_EQ(standardized("/../../.."), "/");
}

TEST(Path, StandardizesRelativeToTheCurrentFolder) {
    const TemporaryDirectory root;
    fs::create_directory(root / "gone");
    const Path before = fs::current_path();
    fs::current_path(root.path());
    EXPECT_EQ(standardized("a/./b/"), root / "a/b");
    EXPECT_EQ(standardized(""), "") << "an empty name is not the current folder";
    fs::current_path(root / "gone");
    fs::remove(root / "gone");
    const Path inNoFolder = standardized("home");
    fs::current_path(before);
    EXPECT_EQ(inNoFolder, "home") << "must not become a file of the root folder";
}

TEST(Path, ReturnsTheLastComponent) {
    const struct {
        const char* path;
        const char* last;
        bool dots;
    } cases[] = {
        {"/a/b", "b", false},   {"/a/b//", "b", false}, {"/", "/", false},  {"//", "/", false},
        {"/a/..", "..", true},  {"/a/./", ".", true},   {"..", "..", true}, {"a", "a", false},
        {"/a..", "a..", false}, {"/..a", "..a", false},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(lastComponent(test.path), test.last) << test.path;
        EXPECT_EQ(endsInDots(test.path), test.dots) << test.path;
    }
}

TEST(Path, ReturnsTheExtension) {
    const struct {
        const char* path;
        const char* extension;
    } cases[] = {
        {"/a/photo.JPG", "JPG"},  {"/a/archive.tar.gz", "gz"},
        {"/a/Some.app//", "app"}, {"/a.b/name", ""},
        {"/a/name.", ""},         {"/a/.bashrc", ""},
        {"/a/..hidden", ""},      {"/a/.config.yml", "yml"},
        {"/a/Dr. Jekyll", ""},    {"/a/x.\xFF", "\xFF"},
        {"/a/a b.c", "c"},        {"/", ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(pathExtension(test.path), test.extension) << test.path;
}

TEST(Path, RoundTripsThroughAnUri) {
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    for (const Path& path : {Path("/a b%25/ü#?"), Path("/"), Path(everyByte)}) {
        const std::string uri = fileUri(path);
        EXPECT_EQ(uri.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                        "0123456789-_.!~*'()/%:"),
                  std::string::npos);
        EXPECT_EQ(pathFromFileUri(uri), path);
        EXPECT_EQ(pathFromJsonText(pathToJsonText(path.native())), path);
    }
    EXPECT_EQ(fileUri("/a b\xff"), "file:///a%20b%FF");
    EXPECT_EQ(pathToJsonText("/a b ü"), "/a b ü");
    EXPECT_EQ(pathToJsonText("/b\xff"), "file:///b%FF");
}

TEST(Path, AcceptsOnlyLocalFileUris) {
    const struct {
        const char* uri;
        std::optional<Path> path;
    } cases[] = {
        {"file:///a%2Fb%2f", "/a/b/"},
        {"file:/a", "/a"},
        {"file://localhost/a", "/a"},
        {"FILE://LocalHost/a", "/a"},
        {"file:///a+b", "/a+b"},
        {"file://elsewhere/a", std::nullopt},
        {"file://localhost", std::nullopt},
        {"file:a", std::nullopt},
        {"files:///a", std::nullopt},
        {"http:///a", std::nullopt},
        {"/a", std::nullopt},
        {"", std::nullopt},
        {"file:///a%", std::nullopt},
        {"file:///a%4", std::nullopt},
        {"file:///a%g0", std::nullopt},
        {"file:///a%00b", std::nullopt},
    };
    for (const auto& test : cases)
        EXPECT_EQ(pathFromFileUri(test.uri), test.path) << test.uri;
    using namespace std::string_view_literals;
    EXPECT_EQ(pathFromFileUri("file:///a\0b"sv), std::nullopt);
}

TEST(Path, DisplayTextReplacesInvalidBytes) {
    const struct {
        const char* bytes;
        const char* shown;
    } cases[] = {
        {"plain", "plain"},
        {"\xF0\x9F\x94\xA5 é", "\xF0\x9F\x94\xA5 é"},
        {"a\xFF", "a\xEF\xBF\xBD"},
        {"\xC3", "\xEF\xBF\xBD"},                                 // truncated
        {"\xC0\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"},                 // overlong
        {"\xE0\x80\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"}, // overlong
        {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"}, // half a surrogate pair
        {"\xF4\x90\x80\x80x", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBDx"}, // too high
    };
    for (const auto& test : cases) {
        EXPECT_EQ(displayText(test.bytes), test.shown);
        EXPECT_EQ(isValidUtf8(test.bytes), std::string_view(test.bytes) == test.shown);
    }
}

} // namespace
} // namespace vexmoor::test
