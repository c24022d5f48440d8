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
    int textId;     // translator id of the row's caption
    QString value;  // current-value text
    bool enabled;
    bool showable;
};

constexpr int kOptionItemCount = 6;

// The option list's rows in display order (AF stands before TA on purpose).
extern tagTunerOpItem_T tunerOpItems[kOptionItemCount];

// Screen on display: 0 none, 1 tuner, 2 options, 3 PTY list, 4 PTY search
// running, 5 PTY search finished.
Q_DECL_EXPORT extern int g_TunerCurDSPL;

// Rewrites the radio configuration below NILO_DIR (or beside the program)
// with the named region's variant `step` (0 or 1).
Q_DECL_EXPORT void setTunerStep(int step);

} // namespace tuner
