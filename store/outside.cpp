#include "store/outside.h"

OutsideWorld& Outside() {
    static OutsideWorld world;
    return world;
}
