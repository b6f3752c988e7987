#pragma once
// Between the files of the skin only: where its tree lies.

#include <QString>

namespace Skin {
/// The Skin folder that was loaded.
QString Folder();
void ForgetIcons();
}  // namespace Skin
