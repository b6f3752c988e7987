#pragma once
// Pages of the product on the web.

#include <QString>

inline const QString kHomePage = QStringLiteral("https://www.moque.example/");
inline const QString kHelpPage = QStringLiteral("https://www.moque.example/help/");
inline const QString kMakerPage = QStringLiteral("https://www.moque.example/about/");
