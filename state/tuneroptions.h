#pragma once

#include <QString>

namespace tuner {

enum tunerOptionItem {
    OpItemAutoStore = 0,
    OpItemLocal = 1,
    OpItemTa = 2,
    OpItemAf = 3,
    OpItemRegional = 4,
    OpItemPty = 5,
};

struct tagTunerOpItem_T
{
    tunerOptionItem item;
    int textId;    // translator id of the row's caption
    QString value; // current-value text
    bool enabled;
    bool showable;
};

constexpr int kOptionItemCount = 6;

// The option list's rows in display order (AF stands before TA on purpose).
extern tagTunerOpItem_T tunerOpItems[kOptionItemCount];

// The screen on display, one of TunerDisplay.
Q_DECL_EXPORT extern int g_TunerCurDSPL;

enum TunerDisplay {
    DisplayNone = 0,
    DisplayPlayer = 1,
    DisplayOptionList = 2,
    DisplayPtyList = 3,
    DisplayPtySearching = 4, // the PTY search popup while the search runs
    DisplayPtySearchEnded = 5,
};

// PTY code to translator text id under RDS (1) or RBDS (2); 0 when none.
int ptyTextId(int rdsSupport, int code);

// Rewrites the radio configuration below NILO_DIR (or beside the program)
// with the named region's variant `step` (0 or 1).
Q_DECL_EXPORT void setTunerStep(int step);

} // namespace tuner
