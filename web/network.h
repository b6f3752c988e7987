#pragma once
// The network under the web ledger. Its library is asked for work only when the first request is sent.

#include "web/web_ledger.h"

/// Sends by HTTP. A closed connection never makes it send again: the service sees each request once.
WebSend NetworkSend();
