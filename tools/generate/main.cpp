// generate_book TARGET COUNT [SEED]: a book of COUNT entries for measuring and trying out.

#include "tools/generate/book_maker.h"

#include <cstdio>

int main(int argc, char** argv) {
    const int count = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 0;
    if (argc < 3 || argc > 4 || count <= 0) {
        std::fputs("Usage: generate_book TARGET COUNT [SEED]\n", stderr);
        return 2;
    }
    const unsigned seed = argc == 4 ? QString::fromLocal8Bit(argv[3]).toUInt() : 1;
    return MakeBook(QString::fromLocal8Bit(argv[1]), count, seed) ? 0 : 1;
}
