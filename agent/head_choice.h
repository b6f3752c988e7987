#pragma once
// The window of JotIco: six heads, one of which is chosen.

#include "shell/controls/kestro_dialog.h"

#include <vector>

class HeadButton;

class HeadChoice : public KestroDialog {
 public:
    HeadChoice();
    /// Name of the chosen head in the icon set.
    QString Chosen() const;

 private:
    std::vector<HeadButton*> heads_;
};
