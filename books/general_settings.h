#pragma once
// Saving the general settings of the program.

#include <QString>

struct GeneralForm {
    int nGroup = 3;  ///< 3, 4, or 0 for no grouping
    QString path;    ///< the book box as typed; empty: the usual place
    QString webName, webPass;
};

/// Digits per group of the options from left to right.
int GroupOfOption(int option);

/// What the user is told after the write.
struct GeneralSaved {
    QString message;
    int icon;
    QString box;      ///< what the box of the path shows now
    QString restart;  ///< text of the request to start anew, empty when the book box stays
};

/// Writes all settings in one transaction. A folder that is not there costs that one setting alone. Throws
/// DbError when the write fails; what stands in memory is then as before. Emits groupingChanged.
GeneralSaved SaveGeneralSettings(const GeneralForm& form);
