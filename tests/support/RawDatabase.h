#pragma once

#include "base/Path.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace vexmoor::test {

/// A separate connection to the database, as another program has.
class RawDatabase {
  public:
    explicit RawDatabase(const Path& file) { EXPECT_EQ(sqlite3_open(file.c_str(), &m_raw), 0); }
    ~RawDatabase() { sqlite3_close(m_raw); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    /// Returns the result rows, with columns joined by "|".
    std::vector<std::string> run(const char* sql) {
        std::vector<std::string> rows;
        const auto addRow = [](void* list, int count, char** texts, char**) {
            std::string row;
            for (int i = 0; i < count; ++i)
                row.append(i > 0 ? "|" : "").append(texts[i] != nullptr ? texts[i] : "NULL");
            static_cast<std::vector<std::string>*>(list)->push_back(std::move(row));
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(m_raw, sql, addRow, &rows, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(m_raw);
        return rows;
    }

  private:
    sqlite3* m_raw = nullptr;
};

} // namespace vexmoor::test
