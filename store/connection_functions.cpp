// The text functions that statements of this program use and SQLite lacks: left$ and Mid$. They count
// characters; their bodies stay lean, since lists run them once a row.

#include "store/connection_core.h"

#include <cstring>

namespace {

bool StartsCharacter(unsigned char c) {
    return (c & 0xC0) != 0x80;
}

// The byte at which character number n (from 0) begins, or the end.
int CharacterStart(const unsigned char* text, int bytes, sqlite3_int64 n) {
    int at = 0;
    for (sqlite3_int64 seen = 0; at < bytes; ++at) {
        if (!StartsCharacter(text[at])) continue;
        if (seen == n) return at;
        ++seen;
    }
    return bytes;
}

void Left(sqlite3_context* context, int, sqlite3_value** args) {
    const auto* text = sqlite3_value_text(args[0]);
    if (!text) return;
    const int bytes = sqlite3_value_bytes(args[0]);
    const auto count = sqlite3_value_int64(args[1]);
    const int end = count <= 0 ? 0 : CharacterStart(text, bytes, count);
    sqlite3_result_text(context, reinterpret_cast<const char*>(text), end, SQLITE_TRANSIENT);
}

void Mid(sqlite3_context* context, int, sqlite3_value** args) {
    const auto* text = sqlite3_value_text(args[0]);
    if (!text) return;
    const int bytes = sqlite3_value_bytes(args[0]);
    const auto start = sqlite3_value_int64(args[1]);
    const int from = start <= 1 ? 0 : CharacterStart(text, bytes, start - 1);
    sqlite3_result_text(context, reinterpret_cast<const char*>(text) + from, bytes - from, SQLITE_TRANSIENT);
}

}  // namespace

void RegisterTextFunctions(sqlite3* db) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function(db, "left$", 2, flags, nullptr, Left, nullptr, nullptr);
    sqlite3_create_function(db, "Mid$", 2, flags, nullptr, Mid, nullptr, nullptr);
}
