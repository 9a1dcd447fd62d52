#include "base/SqliteUserDefaults.h"

#include "base/SqliteError.h"

#include "support/RawDatabase.h"
#include "support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

#include <set>

namespace vexmoor::test {
namespace {

namespace fs = std::filesystem;
using Access = SqliteUserDefaults::Access;
using Data = UserDefaults::Data;
using testing::ElementsAre;
using testing::IsEmpty;

/// Drops file permissions during its lifetime if the tests run as root, who may access everything.
class OrdinaryRights {
  public:
    OrdinaryRights() : m_user(::setfsuid(kNobody)), m_group(::setfsgid(kNobody)) {}
    ~OrdinaryRights() {
        ::setfsuid(static_cast<uid_t>(m_user));
        ::setfsgid(static_cast<gid_t>(m_group));
    }
    OrdinaryRights(const OrdinaryRights&) = delete;
    OrdinaryRights& operator=(const OrdinaryRights&) = delete;

    static constexpr unsigned kNobody = 65534;

  private:
    int m_user;
    int m_group;
};

class SqliteUserDefaultsTest : public testing::Test {
  protected:
    Result<std::unique_ptr<SqliteUserDefaults>> open(Access access = Access::readWrite) {
        return SqliteUserDefaults::open(
            m_file, access, [this](const Error& error) { m_failures.push_back(error); });
    }

    /// Returns the value that a newly started program reads.
    std::optional<UserDefaults::Value> stored(std::string_view key) {
        const auto reader = open(Access::readOnly);
        EXPECT_TRUE(reader) << (reader ? "" : reader.error().message());
        return reader ? (*reader)->value(key) : std::nullopt;
    }

    [[nodiscard]] std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_file.parent_path()))
            names.insert(entry.path().filename());
        return names;
    }

    [[nodiscard]] Path beside(const char* suffix) const { return m_file.native() + suffix; }

    TemporaryDirectory m_directory;
    Path m_file = m_directory / "data/defaults.db";
    std::vector<Error> m_failures;
};

TEST_F(SqliteUserDefaultsTest, ReadsAValueOnlyAsItsStoredKind) {
    {
        const auto defaults = open();
        ASSERT_TRUE(defaults);
        (*defaults)->assign("flag", true);
        (*defaults)->assign("number", std::int64_t{1});
        (*defaults)->assign("text", std::string("1"));
        (*defaults)->assign("bytes", Data{"1"});
    }
    const auto defaults = open();
    ASSERT_TRUE(defaults);
    for (const char* key : {"flag", "number", "text", "bytes", "absent"}) {
        const std::string_view name = key;
        EXPECT_EQ((*defaults)->boolean(key).has_value(), name == "flag") << key;
        EXPECT_EQ((*defaults)->integer(key).has_value(), name == "number") << key;
        EXPECT_EQ((*defaults)->string(key).has_value(), name == "text") << key;
        EXPECT_EQ((*defaults)->data(key).has_value(), name == "bytes") << key;
    }
    EXPECT_THAT(RawDatabase(m_file).run("SELECT key, kind, typeof(value), CAST(value AS TEXT) "
                                        "FROM defaults ORDER BY key"),
                ElementsAre("bytes|data|blob|1", "flag|bool|integer|1", "number|integer|integer|1",
                            "text|string|text|1"));
}

TEST_F(SqliteUserDefaultsTest, RoundTripsEveryByte) {
    using namespace std::string_literals;
    const std::map<std::string, UserDefaults::Value> values = {
        {"broken text", "\xff\xc0 \0 end"s},
        {"broken bytes", Data{"\0\xfe\xff\0"s}},
        {"empty text", ""s},
        {"empty bytes", Data{}},
        {"lowest", std::numeric_limits<std::int64_t>::min()},
        {"highest", std::numeric_limits<std::int64_t>::max()},
        {"off", false},
        {"clé '\";", "quoted"s},
    };
    {
        const auto defaults = open();
        ASSERT_TRUE(defaults);
        (*defaults)->assign("off", "another kind"s);
        (*defaults)->assign("removed", true);
        for (const auto& [key, value] : values)
            (*defaults)->assign(key, value);
        (*defaults)->assign("removed", std::nullopt);
        (*defaults)->assign("never there", std::nullopt);
    }
    const auto defaults = open();
    ASSERT_TRUE(defaults);
    for (const auto& [key, value] : values)
        EXPECT_EQ((*defaults)->value(key), value) << key;
    EXPECT_FALSE((*defaults)->value("removed"));
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(SqliteUserDefaultsTest, CommitsEachAssignmentAndABatchAsOne) {
    const auto defaults = open();
    ASSERT_TRUE(defaults);
    (*defaults)->assign("a", std::int64_t{1});
    EXPECT_EQ(stored("a"), UserDefaults::Value(std::int64_t{1}));
    const auto committed = (*defaults)->transaction([&] {
        (*defaults)->assign("a", std::int64_t{2});
        EXPECT_TRUE((*defaults)->transaction([&] { (*defaults)->assign("b", true); }));
        EXPECT_EQ((*defaults)->integer("a"), 2);
        EXPECT_EQ(stored("a"), UserDefaults::Value(std::int64_t{1}));
        EXPECT_FALSE(stored("b"));
    });
    EXPECT_TRUE(committed);
    EXPECT_EQ(stored("a"), UserDefaults::Value(std::int64_t{2}));
    EXPECT_EQ(stored("b"), UserDefaults::Value(true));
}

TEST_F(SqliteUserDefaultsTest, StoresFailedChangesWithTheNextAssignment) {
    const auto defaults = open();
    ASSERT_TRUE(defaults);
    RawDatabase(m_file).run("CREATE TRIGGER refuse BEFORE INSERT ON defaults WHEN NEW.key = 'bad' "
                            "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const auto committed = (*defaults)->transaction([&] {
        (*defaults)->assign("before", true);
        (*defaults)->assign("bad", true);
        (*defaults)->assign("after", true);
    });
    ASSERT_FALSE(committed);
    EXPECT_EQ(committed.error().code.category(), sqliteCategory());
    EXPECT_EQ(committed.error().path, m_file);
    for (const char* key : {"before", "bad", "after"}) {
        EXPECT_FALSE(stored(key)) << key;
        EXPECT_EQ((*defaults)->boolean(key), true) << key;
    }
    EXPECT_THAT(m_failures, IsEmpty()) << "the caller received the error";

    (*defaults)->assign("bad", false);
    EXPECT_EQ(m_failures.size(), 1U);
    EXPECT_FALSE((*defaults)->transaction([&] { (*defaults)->assign("good", true); }))
        << "nothing is stored without earlier changes";
    EXPECT_FALSE(stored("good"));

    RawDatabase(m_file).run("DROP TRIGGER refuse");
    (*defaults)->assign("before", std::nullopt);
    EXPECT_FALSE(stored("before"));
    for (const char* key : {"after", "good"})
        EXPECT_EQ(stored(key), UserDefaults::Value(true)) << key;
    EXPECT_EQ(stored("bad"), UserDefaults::Value(false));
    EXPECT_EQ(m_failures.size(), 1U);
}

TEST_F(SqliteUserDefaultsTest, ReportsAForeignLockAndRecovers) {
    const auto defaults = open();
    ASSERT_TRUE(defaults);
    {
        RawDatabase other(m_file);
        other.run("BEGIN IMMEDIATE");
        const auto committed =
            (*defaults)->transaction([&] { (*defaults)->assign("batch", true); });
        ASSERT_FALSE(committed);
        EXPECT_EQ(committed.error().message(), "The database is in use by another program");
    }
    (*defaults)->assign("later", true);
    EXPECT_EQ(stored("later"), UserDefaults::Value(true));
    EXPECT_EQ(stored("batch"), UserDefaults::Value(true));
}

TEST_F(SqliteUserDefaultsTest, RenamesACorruptDatabaseWithItsLogAndCreatesANewOne) {
    const std::string garbage(5000, 'x');
    const auto databaseAndLog = [](const std::string& file) {
        std::vector<std::string> bytes;
        for (const char* suffix : {"", "-wal"})
            bytes.push_back(fs::exists(file + suffix) ? contents(file + suffix) : "");
        return bytes;
    };
    const struct {
        const char* what;
        std::function<void()> damage;
    } cases[] = {
        {"not a database",
         [&] {
             RawDatabase(m_file).run("PRAGMA wal_checkpoint(TRUNCATE)");
             m_directory.write("data/defaults.db", garbage);
             m_directory.write("data/defaults.db-wal", "not a log either");
         }},
        {"emptied, all that is known stands in the log", [&] { fs::resize_file(m_file, 0); }},
        {"removed without its log", [&] { fs::remove(m_file); }},
        {"a table's page overwritten",
         [&] {
             RawDatabase(m_file).run("PRAGMA wal_checkpoint(TRUNCATE)");
             const auto bytes = contents(m_file);
             m_directory.write("data/defaults.db",
                               bytes.substr(0, 4096) + std::string(bytes.size() - 4096, 'x'));
             m_directory.write("data/defaults.db-wal", "");
         }},
        {"another program's tables",
         [&] { RawDatabase(m_file).run("DROP TABLE defaults; CREATE TABLE other (a)"); }},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        fs::remove_all(m_file.parent_path());
        {
            const auto defaults = open();
            ASSERT_TRUE(defaults);
            (*defaults)->assign("kept", true);
        }
        test.damage();
        const auto before = databaseAndLog(m_file);
        {
            const auto defaults = open();
            ASSERT_TRUE(defaults) << defaults.error().message();
            EXPECT_EQ((*defaults)->setAside(), beside(".corrupt-1"));
            EXPECT_FALSE((*defaults)->value("kept"));
            (*defaults)->assign("fresh", true);
        }
        EXPECT_TRUE(databaseAndLog(beside(".corrupt-1")) == before); // too long to print
        EXPECT_EQ(stored("fresh"), UserDefaults::Value(true));
    }
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(SqliteUserDefaultsTest, ReplacesWhatIsNotADatabaseFileWithoutBlocking) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"a pipe", [&] { ASSERT_EQ(mkfifo(m_file.c_str(), 0600), 0); }},
        {"a folder", [&] { fs::create_directory(m_file); }},
        {"a device", [&] { fs::create_symlink("/dev/zero", m_file); }},
        {"a huge file",
         [&] {
             m_directory.write("data/defaults.db", "");
             fs::resize_file(m_file, std::uintmax_t{1} << 40);
         }},
    };
    fs::create_directory(m_file.parent_path());
    for (const auto& [what, make] : cases) {
        SCOPED_TRACE(what);
        make();
        EXPECT_FALSE(open(Access::readOnly));
        const auto defaults = open();
        ASSERT_TRUE(defaults) << defaults.error().message();
        EXPECT_EQ((*defaults)->setAside(), beside(".corrupt-1"));
        (*defaults)->assign("kept", true);
        EXPECT_THAT(m_failures, IsEmpty());
        fs::remove_all(m_file.parent_path());
        fs::create_directory(m_file.parent_path());
    }
}

TEST_F(SqliteUserDefaultsTest, DoesNotReuseTheNameOfAnEarlierCorruptDatabase) {
    m_directory.write("data/defaults.db", "neither a database");
    m_directory.write("data/defaults.db-wal", "nor a log");
    m_directory.write("data/defaults.db.corrupt-1", "first");
    m_directory.write("data/defaults.db.corrupt-2-wal", "second, cut off while it was moved");
    {
        const auto defaults = open();
        ASSERT_TRUE(defaults);
        EXPECT_EQ((*defaults)->setAside(), beside(".corrupt-3"));
    }
    EXPECT_EQ(contents(beside(".corrupt-1")), "first");
    EXPECT_EQ(contents(beside(".corrupt-2-wal")), "second, cut off while it was moved");
    EXPECT_EQ(contents(beside(".corrupt-3")), "neither a database");
    EXPECT_EQ(contents(beside(".corrupt-3-wal")), "nor a log");
}

TEST_F(SqliteUserDefaultsTest, ReadOnlyAccessChangesNothing) {
    const auto missing = open(Access::readOnly);
    ASSERT_TRUE(missing);
    EXPECT_FALSE((*missing)->value("a"));
    EXPECT_FALSE((*missing)->transaction([&] { (*missing)->assign("a", true); }));
    EXPECT_FALSE(fs::exists(m_file.parent_path()));

    for (const auto& bytes : {std::string(5000, 'x'), std::string()}) {
        m_directory.write("data/defaults.db", bytes);
        m_directory.write("data/defaults.db-wal", "a log");
        EXPECT_FALSE(open(Access::readOnly));
        EXPECT_EQ(contents(m_file), bytes);
        EXPECT_EQ(contents(beside("-wal")), "a log");
        EXPECT_FALSE(fs::exists(beside(".corrupt-1")));
    }

    fs::remove_all(m_file.parent_path());
    ASSERT_TRUE(open());
    const auto reader = open(Access::readOnly);
    ASSERT_TRUE(reader);
    (*reader)->assign("a", true);
    ASSERT_EQ(m_failures.size(), 1U);
    EXPECT_EQ(m_failures[0].message(), "The database cannot be written");
    EXPECT_FALSE(stored("a"));
}

TEST_F(SqliteUserDefaultsTest, RejectsANewerDatabaseWithoutChangingIt) {
    m_directory.write("data/defaults.db", "");
    RawDatabase(m_file).run("CREATE TABLE future (a); PRAGMA user_version = 3");
    const auto before = contents(m_file);
    for (const auto access : {Access::readWrite, Access::readOnly}) {
        const auto defaults = open(access);
        ASSERT_FALSE(defaults);
        EXPECT_EQ(defaults.error().message(),
                  "The database was written by a newer version of this program");
    }
    EXPECT_EQ(contents(m_file), before);
    EXPECT_THAT(files(), ElementsAre("defaults.db"));
}

TEST_F(SqliteUserDefaultsTest, FailsIfItCannotWrite) {
    const auto rights = [](const Path& path, mode_t mode) {
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        if (::geteuid() == 0) {
            EXPECT_EQ(::chown(path.c_str(), OrdinaryRights::kNobody, OrdinaryRights::kNobody), 0);
        }
    };
    rights(m_directory.path(), 0755);
    const struct {
        const char* what;
        bool exists;
        mode_t folder;
        mode_t file;
        bool readable;
    } cases[] = {
        {"folder not writable, no database yet", false, 0555, 0, true},
        {"file not writable", true, 0755, 0444, true},
        {"file not readable", true, 0755, 0, false},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        fs::create_directories(m_file.parent_path());
        if (test.exists) {
            ASSERT_TRUE(open());
            for (const char* suffix : {"", "-wal", "-shm"})
                rights(beside(suffix), test.file);
        }
        rights(m_file.parent_path(), test.folder);
        {
            const OrdinaryRights ordinary;
            const auto defaults = open();
            EXPECT_FALSE(defaults);
            EXPECT_EQ(open(Access::readOnly).ok(), test.readable);
        }
        rights(m_file.parent_path(), 0755);
        EXPECT_EQ(fs::exists(m_file), test.exists);
        EXPECT_FALSE(fs::exists(beside(".corrupt-1")));
        fs::remove_all(m_file.parent_path());
    }

    m_directory.write("data", "a file where the folder should be");
    EXPECT_FALSE(open());
}

TEST_F(SqliteUserDefaultsTest, ReadsAReadOnlyFolderIncludingTheLog) {
    const struct {
        const char* what;
        std::vector<const char*> removed;
        bool readable;
    } cases[] = {
        {"all three files", {}, true},
        {"a copy without the log's index", {"-shm"}, false},
        {"a database whose log was taken in", {"-shm", "-wal"}, true},
    };
    ::chmod(m_directory.path().c_str(), 0755);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        {
            const auto defaults = open();
            ASSERT_TRUE(defaults);
            (*defaults)->assign("kept", true);
        }
        if (test.readable && !test.removed.empty())
            RawDatabase(m_file).run("PRAGMA wal_checkpoint(TRUNCATE)");
        for (const char* suffix : test.removed)
            fs::remove(beside(suffix));
        ::chmod(m_file.parent_path().c_str(), 0555);
        {
            const OrdinaryRights ordinary;
            const auto defaults = open(Access::readOnly);
            ASSERT_EQ(defaults.ok(), test.readable);
            if (defaults) {
                EXPECT_EQ((*defaults)->boolean("kept"), true);
            }
        }
        ::chmod(m_file.parent_path().c_str(), 0755);
        fs::remove_all(m_file.parent_path());
    }
}

TEST_F(SqliteUserDefaultsTest, KeepsItsLogShortAcrossCommands) {
    for (int command = 0; command < 100; ++command) {
        auto store = open();
        ASSERT_TRUE(store);
        (*store)->assign("data", Data{std::string(10'000, 'x')});
    }
    Path log = m_file;
    log += "-wal";
    EXPECT_LT(fs::file_size(log), 500'000U);
}

TEST_F(SqliteUserDefaultsTest, RestrictsItsFolderToTheUser) {
    ASSERT_TRUE(open());
    EXPECT_EQ(fs::status(m_file.parent_path()).permissions(), fs::perms::owner_all);
}

} // namespace
} // namespace vexmoor::test
