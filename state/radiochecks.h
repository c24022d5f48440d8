#pragma once

#include "radiotuning.h"

#include <QString>

// Checks for what the radio service sends, applied once where its data enters
// the tuner (its signals, and the getters read at start-up or after a
// restart). Only what could crash the tuner, stall it or grow without limit is
// bounded (lengths, counts, indexes, a zero step), with a "[WAR]" line; every
// value the model can hold passes as sent. The code behind trusts what passes.
namespace tuner::radiocheck {

// The longest RDS text (a radio text of 64 characters).
constexpr int kMaxNameLength = 64;
// Items a list can carry: six presets for each of three FM bands.
constexpr int kMaxFmPresets = 18;
constexpr int kMaxAmPresets = 12;
constexpr int kMaxBands = 5;
// PsName1 fills band 0 preset 0 up to band 1 preset 5, PsName2 band 1 preset 3 up to band 2 preset 5.
constexpr int kMaxPsName1Items = 12;
constexpr int kMaxPsName2Items = 9;

// Without control characters (0x00-0x1F, 0x7F) and at most kMaxNameLength long.
QString name(const QString &text, const char *what);
// A ";" list of names, each checked as a name, at most `maxItems` of them.
QString nameList(const QString &names, int maxItems, const char *what);
// A ";" list cut to `maxItems` items, empty ones included (a reader that
// takes an empty item as a value).
QString list(const QString &items, int maxItems, const char *what);
// The non-empty items of a ";" list, at most `maxItems` (a reader that skips
// empty items).
QString values(const QString &items, int maxItems, const char *what);

// A band number 0..4, or `fallback`.
int band(int band, int fallback, const char *what);
// RDS states 0, 1, 3, 5, 7; anything else reads as 0 (no RDS).
int rdsStatus(int state);
// Programme types 0..31.
bool ptyCode(int pty);

// The numbers of a ";" list, empty items skipped, at most `maxItems`. An item
// that is not a number reads as 0, with a warning: the positions stay.
QVector<int> numbers(const QString &items, int maxItems, const char *what);

// The initDate arguments the tuner uses, checked and parsed.
RadioTuning tuning(int bandSwitch, int bandId, const QString &fmList, const QString &amList, int fmMax, int fmMin,
                   int fmStep, int amMax, int amMin, int amStep, const QString &bandCurFreq, const QString &bandPos,
                   int local, int regional);

} // namespace tuner::radiocheck
