#pragma once

#include <QString>

// Checks for what the radio service sends, applied once where its data enters
// the tuner (its signals, and the getters read at start-up or after a
// restart). Each bad value is reported with a "[WAR]" line and then cut,
// clamped or rejected; the code behind trusts what passes.
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
// A ";" list cut to `maxItems` items.
QString list(const QString &items, int maxItems, const char *what);

// Frequencies of a ";" list that lie outside low..high: clamped into it, or
// dropped. Items that are not positive numbers are left for the reader.
enum class OutOfRange { Clamp, Drop };
QString frequencyList(const QString &items, int maxItems, int low, int high, OutOfRange rule, const char *what);

// A band number 0..4, or `fallback`.
int band(int band, int fallback, const char *what);
// True when `freq` lies in the FM or the AM range the tuner knows.
bool inAnyBand(int freq);
// RDS states 0, 1, 3, 5, 7; anything else reads as 0 (no RDS).
int rdsStatus(int state);
// Work states 0..5; anything else reads as 0 (idle).
int workStatus(int state);
// Programme types 0..31.
bool ptyCode(int pty);

// The radio's whole start-up state (the initDate arguments that the tuner uses).
struct InitData
{
    int bandSwitch = 0;
    int bandId = 0;
    QString fmList;
    QString amList;
    int fmMax = 0;
    int fmMin = 0;
    int fmStep = 0;
    int amMax = 0;
    int amMin = 0;
    int amStep = 0;
    QString bandCurFreq;
    QString bandPos;
    int local = 0;
    int regional = 0;
};
void initData(InitData &data);

} // namespace tuner::radiocheck
