// Makes a store from SQL sources at build time: make_store TARGET SOURCE...
// file('name') in a source reads a file beside that source.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sqlite3.h>
#include <string>

namespace {

std::filesystem::path folder;

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void FileFunction(sqlite3_context* context, int, sqlite3_value** args) {
    const auto* name = reinterpret_cast<const char*>(sqlite3_value_text(args[0]));
    const auto bytes = ReadFile(folder / name);
    sqlite3_result_blob64(context, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
}

bool Run(sqlite3* db, const std::string& sql, const char* source) {
    char* error = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error) == SQLITE_OK) return true;
    std::fprintf(stderr, "%s: %s\n", source, error);
    sqlite3_free(error);
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string target = argv[1];
    std::filesystem::remove(target);
    sqlite3* db = nullptr;
    if (sqlite3_open(target.c_str(), &db) != SQLITE_OK) return 1;
    sqlite3_create_function(db, "file", 1, SQLITE_UTF8, nullptr, FileFunction, nullptr, nullptr);
    bool good = Run(db, "pragma page_size=1024; pragma encoding='UTF-8'; begin;", "start");
    for (int i = 2; good && i < argc; ++i) {
        folder = std::filesystem::path(argv[i]).parent_path();
        good = Run(db, ReadFile(argv[i]), argv[i]);
    }
    good = good && Run(db, "commit; vacuum;", "end");
    sqlite3_close(db);
    return good ? 0 : 1;
}
