#pragma once
// The upload of a book's kinds and accounts: the site's own form, filled in.

#include "web/page_reader.h"
#include "web/web_request.h"

#include <optional>

/// FillUploadForm: what a browser sends when the form has been filled in and its button pressed. page is the
/// address the form came from. nullopt when the button is missing, or when the form leads to another host.
std::optional<WebRequest> FillUploadForm(WebPage form, const QUrl& page);
