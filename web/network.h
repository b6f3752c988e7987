#pragma once
// The network under the web ledger: a library beside the program, loaded when the first request is sent.

#include "web/web_ledger.h"

/// Sends by HTTP. A closed connection never makes it send again: the service sees each request once.
WebSend NetworkSend();
