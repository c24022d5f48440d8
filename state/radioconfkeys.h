#pragma once

#include <QString>

namespace tuner::radioconf {

// A switch of the "Tune" group: "Tune/Local", "Tune/CurrBand", ...
QString tuneKey(const char *name);

// The keys of one band's group, "Freq/FM0" .. "Freq/AM4". The prefix is the
// family named when the group is made, the number the band's own.
class BandKeys
{
public:
    BandKeys(bool fmPrefix, int band);
    // The group under the band's own family's prefix.
    static BandKeys own(int band);

    QString currFreq() const { return key("CurrFreq"); }
    QString currFreqId() const { return key("CurrFreqId"); }
    QString preset(int index) const { return indexed("preset_", index); }
    QString ta(int index) const { return indexed("TA_", index); }
    QString af(int index) const { return indexed("AF_", index); }

private:
    QString key(const char *name) const;
    QString indexed(const char *prefix, int index) const;

    QString m_group;
};

} // namespace tuner::radioconf
