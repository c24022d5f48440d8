#include "inifile.h"

#include "tunerlog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tuner {

namespace {

const QByteArray kGeneral = QByteArrayLiteral("General");

bool isControl(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return (u < 0x20 && c != '\t') || u == 0x7F;
}

QByteArray unquoted(const QByteArray &raw)
{
    if (raw.size() >= 2 && raw.startsWith('"') && raw.endsWith('"'))
        return raw.mid(1, raw.size() - 2);
    return raw;
}

// A key or section name as QSettings reads it: '\\' separates groups.
QByteArray unescapedKey(const char *begin, const char *end)
{
    QByteArray key = QByteArray(begin, int(end - begin)).trimmed();
    key.replace('\\', '/');
    return key;
}

// The value up to a ';' comment outside quotes, without blanks at the ends.
QByteArray valueOf(const char *begin, const char *end)
{
    bool quoted = false;
    const char *stop = begin;
    for (; stop < end; ++stop) {
        if (*stop == '"')
            quoted = !quoted;
        else if (*stop == '\\' && stop + 1 < end)
            ++stop;
        else if (*stop == ';' && !quoted)
            break;
    }
    return QByteArray(begin, int(stop - begin)).trimmed();
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

struct ParsedIni
{
    QHash<QByteArray, QByteArray> values;
    int junkLines = 0; // lines QSettings skips: no key, or binary bytes
};

// QSettings' reading: a UTF-8 BOM is skipped, CR, LF and CRLF all end a
// line, and of a key given twice the later one counts. Sections are read in
// order of their names, so where "[Freq]" says "FM0\CurrFreq" and
// "[Freq\FM0]" says "CurrFreq", the longer section name wins wherever it
// stands. One pass, without sorting: 50 000 groups must not stall a start.
ParsedIni parseIni(const QByteArray &content)
{
    ParsedIni parsed;
    // Section lengths of keys read from a nested name ("FM0\CurrFreq"): only
    // these can lose to the same key in a longer section read later.
    QHash<QByteArray, int> nestedSectionLength;
    const char *data = content.constData();
    const char *const fileEnd = data + content.size();
    const char *pos = content.startsWith("\xEF\xBB\xBF") ? data + 3 : data;
    QByteArray section; // "" is General
    while (pos < fileEnd) {
        const char *lineEnd = pos;
        while (lineEnd < fileEnd && *lineEnd != '\n' && *lineEnd != '\r')
            ++lineEnd;
        const char *begin = pos;
        const char *end = lineEnd;
        pos = lineEnd + 1;
        while (begin < end && isBlank(*begin))
            ++begin;
        while (end > begin && isBlank(end[-1]))
            --end;
        if (begin == end || *begin == ';')
            continue;
        if (std::any_of(begin, end, isControl)) {
            ++parsed.junkLines;
            continue;
        }
        if (*begin == '[') {
            const char *close = std::find(begin, end, ']');
            section = unescapedKey(begin + 1, close);
            if (section == kGeneral)
                section.clear();
            continue;
        }
        const char *equals = std::find(begin, end, '=');
        if (equals == begin || equals == end) {
            if (*begin != '#')
                ++parsed.junkLines;
            continue;
        }
        const QByteArray name = unescapedKey(begin, equals);
        QByteArray key;
        key.reserve(section.size() + 1 + name.size());
        if (!section.isEmpty())
            key.append(section).append('/');
        key.append(name);
        if (name.contains('/')) {
            if (parsed.values.contains(key) && nestedSectionLength.value(key, key.lastIndexOf('/')) > section.size())
                continue;
            nestedSectionLength.insert(key, section.size());
        } else if (!nestedSectionLength.isEmpty()) {
            nestedSectionLength.remove(key);
        }
        parsed.values.insert(key, valueOf(equals + 1, end));
    }
    return parsed;
}

bool syncFolder(const QString &folder)
{
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

} // namespace

IniFile::IniFile(const QString &path, QObject *parent)
    : QObject(parent)
    , m_path(path)
{
    m_flushTimer.setSingleShot(true);
    m_flushTimer.setInterval(kFlushDelayMs);
    connect(&m_flushTimer, &QTimer::timeout, this, &IniFile::flush);
    load();
}

IniFile::~IniFile()
{
    flush();
}

QString IniFile::temporaryPath() const
{
    return m_path + QLatin1String(".tmp");
}

IniFile::Stamp IniFile::stamp() const
{
    struct stat status;
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    constexpr qint64 kNsPerSecond = 1000LL * 1000 * 1000;
    return {true, qint64(status.st_size), qint64(status.st_mtim.tv_sec) * kNsPerSecond + status.st_mtim.tv_nsec,
            quint64(status.st_ino)};
}

void IniFile::load()
{
    // A rewrite of ours that a power loss interrupted; the file itself is whole.
    if (QFileInfo(temporaryPath()).isFile()) {
        TUNER_WAR() << temporaryPath() << "was left by an interrupted write; removed.";
        QFile::remove(temporaryPath());
    }
    m_stamp = stamp();
    QHash<QByteArray, QByteArray> values;
    if (m_stamp.exists && readParsed(&values)) {
        m_values = values;
        m_onDisk = values;
    }
}

bool IniFile::readParsed(QHash<QByteArray, QByteArray> *values)
{
    const QFileInfo info(m_path);
    if (!info.isFile()) {
        TUNER_WAR() << m_path << "is not a regular file; defaults are used and it is left alone.";
        m_writable = false;
        return false;
    }
    if (info.size() > kMaxFileBytes) {
        TUNER_WAR() << m_path << info.size()
                    << "bytes is too large for a tuner file; defaults are used and it is left alone.";
        m_writable = false;
        return false;
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        TUNER_WAR() << m_path << "cannot be read:" << file.errorString() << "; defaults are used.";
        return false;
    }
    const ParsedIni parsed = parseIni(file.read(kMaxFileBytes + 1));
    file.close();
    // Only a file of which nothing at all reads as a key is not the tuner's
    // data (binary garbage, UTF-16, prose).
    if (!parsed.values.isEmpty() || parsed.junkLines == 0) {
        *values = parsed.values;
        return true;
    }
    const QString aside = m_path + QLatin1String(".corrupt");
    QFile::remove(aside);
    if (QFile::rename(m_path, aside))
        TUNER_WAR() << m_path << "is not a valid INI file; moved aside to" << aside << "and started clean.";
    else
        TUNER_WAR() << m_path << "is not a valid INI file and cannot be moved aside; it will be replaced.";
    values->clear();
    return true;
}

void IniFile::mergeFromDisk(const Stamp &now)
{
    if (!now.exists)
        TUNER_WAR() << m_path << "was removed while the tuner ran; written anew.";
    QHash<QByteArray, QByteArray> onDisk;
    if (!now.exists || !readParsed(&onDisk) || onDisk.isEmpty()) {
        // Nothing to keep there (gone, unreadable, emptied or moved aside):
        // everything the tuner knows goes back.
        m_onDisk.clear();
        return;
    }
    QHash<QByteArray, QByteArray> merged = onDisk;
    for (const QByteArray &key : qAsConst(m_changed)) {
        const auto it = m_values.constFind(key);
        if (it != m_values.cend())
            merged.insert(key, *it);
    }
    m_values = merged;
    m_onDisk = onDisk;
}

const QByteArray *IniFile::rawValue(const QString &key) const
{
    const auto it = m_values.constFind(key.toLatin1());
    return it == m_values.cend() ? nullptr : &*it;
}

void IniFile::setRaw(const QString &key, const QByteArray &value)
{
    const QByteArray fileKey = key.toLatin1();
    const auto it = m_values.constFind(fileKey);
    if (it != m_values.cend() && *it == value) {
        m_recheck = true;
    } else {
        m_values.insert(fileKey, value);
        m_changed.insert(fileKey);
        m_dirty = true;
    }
    if (m_writable && !m_flushTimer.isActive())
        m_flushTimer.start();
}

void IniFile::setValue(const QString &key, int value)
{
    setRaw(key, QByteArray::number(value));
}

void IniFile::setValue(const QString &key, bool value)
{
    setRaw(key, value ? QByteArrayLiteral("true") : QByteArrayLiteral("false"));
}

void IniFile::setValue(const QString &key, const QString &value)
{
    setRaw(key, escapedString(value));
}

bool IniFile::contains(const QString &key) const
{
    return rawValue(key) != nullptr;
}

int IniFile::intValue(const QString &key, bool *ok) const
{
    const QByteArray *raw = rawValue(key);
    *ok = false;
    return raw ? unquoted(*raw).toInt(ok, 10) : 0;
}

bool IniFile::boolValue(const QString &key, bool *ok) const
{
    const QByteArray *raw = rawValue(key);
    const QByteArray text = raw ? unquoted(*raw).toLower() : QByteArray();
    *ok = text == "true" || text == "false" || text == "1" || text == "0";
    return text == "true" || text == "1";
}

QString IniFile::plainText(const QString &key) const
{
    const QByteArray *raw = rawValue(key);
    return raw ? QString::fromLatin1(unquoted(*raw)) : QString();
}

QByteArray IniFile::escapedString(const QString &text)
{
    QByteArray result;
    bool needsQuotes = false;
    bool escapeNextIfHexDigit = false;
    if (text.startsWith(QLatin1Char('@')))
        result += '@';
    for (const QChar qc : text) {
        const ushort ch = qc.unicode();
        if (ch == ';' || ch == ',' || ch == '=')
            needsQuotes = true;
        const bool hexDigit = (ch >= '0' && ch <= '9') || (ch >= 'a' && ch <= 'f') || (ch >= 'A' && ch <= 'F');
        if (escapeNextIfHexDigit && hexDigit) {
            result += "\\x" + QByteArray::number(ch, 16);
            continue;
        }
        escapeNextIfHexDigit = false;
        switch (ch) {
        case '\0':
            result += "\\0";
            escapeNextIfHexDigit = true;
            break;
        case '\a':
            result += "\\a";
            break;
        case '\b':
            result += "\\b";
            break;
        case '\f':
            result += "\\f";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\t':
            result += "\\t";
            break;
        case '\v':
            result += "\\v";
            break;
        case '"':
        case '\\':
            result += '\\';
            result += char(ch);
            break;
        default:
            if (ch <= 0x1F || ch >= 0x7F) {
                result += "\\x" + QByteArray::number(ch, 16);
                escapeNextIfHexDigit = true;
            } else {
                result += char(ch);
            }
        }
    }
    if (needsQuotes || result.startsWith(' ') || result.endsWith(' '))
        result = '"' + result + '"';
    return result;
}

// Sections and keys in QSettings' own order: "General" first, the rest
// sorted; the first part of a path is the section, the rest is written with '\\'.
QByteArray IniFile::serialise() const
{
    struct Entry
    {
        std::string_view section, key;
        const QByteArray *value;
    };
    std::vector<Entry> entries;
    entries.reserve(size_t(m_values.size()));
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it) {
        const std::string_view path(it.key().constData(), size_t(it.key().size()));
        const size_t slash = path.find('/');
        if (slash == std::string_view::npos)
            entries.push_back({std::string_view(), path, &it.value()});
        else
            entries.push_back({path.substr(0, slash), path.substr(slash + 1), &it.value()});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
        return a.section != b.section ? a.section < b.section : a.key < b.key;
    });
    QByteArray out;
    for (size_t i = 0; i < entries.size(); ++i) {
        const Entry &entry = entries[i];
        if (i == 0 || entry.section != entries[i - 1].section) {
            if (i > 0)
                out += '\n';
            out += '[';
            if (entry.section.empty())
                out += kGeneral;
            else
                out.append(entry.section.data(), int(entry.section.size()));
            out += "]\n";
        }
        QByteArray key(entry.key.data(), int(entry.key.size()));
        out += key.replace('/', '\\') + '=' + *entry.value + '\n';
    }
    return out;
}

bool IniFile::writeAtomically(const QByteArray &content)
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!QDir().mkpath(folder)) {
        TUNER_WAR() << folder << "cannot be created.";
        return false;
    }
    const QString temporary = temporaryPath();
    QFile file(temporary);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        TUNER_WAR() << temporary << "cannot be written:" << file.errorString();
        return false;
    }
    const bool written = file.write(content) == content.size() && file.flush() && ::fdatasync(file.handle()) == 0;
    file.close();
    if (!written || ::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(m_path).constData()) != 0) {
        TUNER_WAR() << m_path << "cannot be written:" << std::strerror(errno);
        QFile::remove(temporary);
        return false;
    }
    syncFolder(folder); // makes the rename itself durable
    return true;
}

bool IniFile::flush()
{
    m_flushTimer.stop();
    const bool recheck = std::exchange(m_recheck, false);
    if (!m_writable || (!m_dirty && !recheck))
        return !m_dirty;
    const Stamp now = stamp();
    if (now != m_stamp) {
        mergeFromDisk(now);
        m_stamp = now;
        if (!m_writable)
            return false;
    }
    if (now.exists && m_values == m_onDisk) {
        m_dirty = false;
        m_changed.clear();
        return true;
    }
    if (!writeAtomically(serialise())) {
        if (!m_writeFailed)
            TUNER_WAR() << m_path << "keeps its changes in memory until a write succeeds.";
        m_writeFailed = true;
        return false;
    }
    m_writeFailed = false;
    m_dirty = false;
    m_changed.clear();
    m_onDisk = m_values;
    m_stamp = stamp();
    ++m_rewrites;
    return true;
}

} // namespace tuner
