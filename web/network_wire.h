#pragma once
// How a request and its answer pass between the program and the process that carries the request out.

#include "web/conversation.h"

#include <QDataStream>

inline QDataStream& operator<<(QDataStream& to, const WebRequest& r) {
    return to << r.url << r.post << r.body << r.contentType << r.cookies;
}
inline QDataStream& operator>>(QDataStream& from, WebRequest& r) {
    return from >> r.url >> r.post >> r.body >> r.contentType >> r.cookies;
}
inline QDataStream& operator<<(QDataStream& to, const WebReply& r) {
    return to << r.failure << r.url << r.redirect << r.keepsMethod << r.contentType << r.body << r.cookies;
}
inline QDataStream& operator>>(QDataStream& from, WebReply& r) {
    return from >> r.failure >> r.url >> r.redirect >> r.keepsMethod >> r.contentType >> r.body >> r.cookies;
}
