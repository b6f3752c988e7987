#pragma once
// The network under the web ledger: a process for each request.

#include "web/web_ledger.h"

/// Sends by HTTP. A closed connection never makes it send again: the service sees each request once. Whatever
/// the service does, memory and threads that it holds go with the process when the request is given up.
WebSend NetworkSend();
