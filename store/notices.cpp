#include "store/notices.h"

ProgramNotices& Notices() {
    static ProgramNotices notices;
    return notices;
}
