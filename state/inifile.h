#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

namespace tuner {

// One INI file held in memory, in the layout QSettings reads and writes
// ("[Freq]" / "FM0\CurrFreq=8750"). It is read as QSettings reads it (a
// UTF-8 BOM, any line ends, repeated keys and groups with QSettings' rule for
// which one counts); setters change memory only. Changes of one burst are
// written together, shortly after, in QSettings' own layout, as one atomic
// synced rewrite (temporary file, fdatasync, rename), so a power loss leaves
// either the old or the new file and never a torn one. A rewrite that would
// not change what the file says is skipped.
// The files are shared: another program may change one while the tuner
// runs. A rewrite starts from what is on disk when the file changed since
// the tuner last read or wrote it (size, modification time, inode), with only
// the keys the tuner set since laid over it; a deleted file is written anew.
class IniFile : public QObject
{
    Q_OBJECT
public:
    // Larger files are not the tuner's: they are left alone.
    static constexpr qint64 kMaxFileBytes = 1024LL * 1024;
    static constexpr int kFlushDelayMs = 50;

    explicit IniFile(const QString &path, QObject *parent = nullptr);
    ~IniFile() override; // writes what is pending

    QString path() const { return m_path; }
    // False when the file was refused (not a regular file, too large): it is
    // then never written.
    bool isWritable() const { return m_writable; }

    // `key` is a QSettings path below the file ("Freq/FM0/CurrFreq").
    void setValue(const QString &key, int value);
    void setValue(const QString &key, bool value);
    void setValue(const QString &key, const QString &value);
    bool contains(const QString &key) const;
    // A stored number or switch; *ok is false when it is absent or not one.
    int intValue(const QString &key, bool *ok) const;
    bool boolValue(const QString &key, bool *ok) const;
    // A stored text without its quotes; escapes are not undone (plain ASCII
    // values such as region names).
    QString plainText(const QString &key) const;

    // Writes pending changes now; true when nothing is left pending.
    bool flush();
    bool hasPendingChanges() const { return m_dirty; }
    int rewrites() const { return m_rewrites; }

    // The text QSettings stores for a string (escapes, quotes, "@@").
    static QByteArray escapedString(const QString &text);

private:
    // What tells that another writer changed the file.
    struct Stamp
    {
        bool exists = false;
        qint64 size = 0;
        qint64 modifiedNs = 0;
        quint64 inode = 0;
        bool operator==(const Stamp &other) const
        {
            return exists == other.exists && size == other.size && modifiedNs == other.modifiedNs
                   && inode == other.inode;
        }
        bool operator!=(const Stamp &other) const { return !(*this == other); }
    };
    Stamp stamp() const;
    void load();
    // Takes what another writer left on disk, keeping the tuner's own changes.
    void mergeFromDisk(const Stamp &now);
    // Reads the file if it is one the tuner may write; false when refused.
    bool readParsed(QHash<QByteArray, QByteArray> *values);
    void setRaw(const QString &key, const QByteArray &value);
    const QByteArray *rawValue(const QString &key) const;
    QByteArray serialise() const;
    bool writeAtomically(const QByteArray &content);
    QString temporaryPath() const;

    QString m_path;
    // Full QSettings key ("Freq/FM0/CurrFreq") to the value as stored.
    QHash<QByteArray, QByteArray> m_values;
    // What the file on disk says: a rewrite that would say the same again
    // is skipped.
    QHash<QByteArray, QByteArray> m_onDisk;
    Stamp m_stamp;
    // Keys set since the last write: these win over another writer's.
    QSet<QByteArray> m_changed;
    // A setter repeated a value: the file is looked at again in case it went.
    bool m_recheck = false;
    bool m_writable = true;
    bool m_dirty = false;
    bool m_writeFailed = false;
    int m_rewrites = 0;
    QTimer m_flushTimer;
};

} // namespace tuner
