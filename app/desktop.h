#pragma once
// The desktop behind the slots of store/outside: clipboard, handlers, programs, trash.

void InstallDesktop();
