#include "shell/commands.h"

FrameCommands& Commands() {
    static FrameCommands commands;
    return commands;
}
