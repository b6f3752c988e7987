#pragma once
// Pages of the product on the web.

#include <QString>

inline const QString kHomePage = QStringLiteral("https://www.moque.example/");
inline const QString kHelpPage = QStringLiteral("https://www.moque.example/help/");
inline const QString kMakerPage = QStringLiteral("https://www.moque.example/about/");

/// Opens an address with the desktop's browser; says so when there is none.
void OpenAddress(const QString& address);
