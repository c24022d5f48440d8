#include "inifile.h"

#include "tunerlog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace tuner {

namespace {

const QByteArray kGeneral = QByteArrayLiteral("General");

// "Freq/FM0/CurrFreq" lives in section "Freq" as "FM0\CurrFreq"; a key with
// no group in "General".
QPair<QByteArray, QByteArray> splitKey(const QString &key)
{
    const QByteArray path = key.toLatin1();
    const int slash = path.indexOf('/');
    if (slash < 0)
        return {kGeneral, path};
    QByteArray rest = path.mid(slash + 1);
    rest.replace('/', '\\');
    return {path.left(slash), rest};
}

bool isBinary(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return (u < 0x20 && c != '\t' && c != '\r' && c != '\n') || u == 0x7F;
}

QByteArray unquoted(const QByteArray &raw)
{
    if (raw.size() >= 2 && raw.startsWith('"') && raw.endsWith('"'))
        return raw.mid(1, raw.size() - 2);
    return raw;
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

void IniFile::load()
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return;
    if (!info.isFile()) {
        TUNER_WAR() << m_path << "is not a regular file; defaults are used and it is left alone.";
        m_writable = false;
        return;
    }
    if (info.size() > kMaxFileBytes) {
        TUNER_WAR() << m_path << info.size() << "bytes is too large for a tuner file; defaults are used and it is left alone.";
        m_writable = false;
        return;
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        TUNER_WAR() << m_path << "cannot be read:" << file.errorString() << "; defaults are used.";
        return;
    }
    const QByteArray content = file.read(kMaxFileBytes + 1);
    file.close();
    if (parse(content))
        return;
    m_sections.clear();
    const QString aside = m_path + QLatin1String(".corrupt");
    QFile::remove(aside);
    if (QFile::rename(m_path, aside))
        TUNER_WAR() << m_path << "is not a valid INI file; moved aside to" << aside << "and started clean.";
    else
        TUNER_WAR() << m_path << "is not a valid INI file and cannot be moved aside; it will be replaced.";
}

bool IniFile::parse(const QByteArray &content)
{
    if (std::any_of(content.cbegin(), content.cend(), isBinary))
        return false;
    Section *section = nullptr;
    for (QByteArray line : content.split('\n')) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (line.startsWith('[')) {
            if (!line.endsWith(']'))
                return false;
            const QByteArray name = line.mid(1, line.size() - 2).trimmed();
            auto it = std::find_if(m_sections.begin(), m_sections.end(), [&](const Section &s) { return s.name == name; });
            if (it == m_sections.end()) {
                m_sections.append(Section{name, {}});
                it = m_sections.end() - 1;
            }
            section = &*it;
            continue;
        }
        const int equals = line.indexOf('=');
        if (equals <= 0)
            return false;
        if (!section) {
            m_sections.append(Section{kGeneral, {}});
            section = &m_sections.last();
        }
        QByteArray key = line.left(equals).trimmed();
        key.replace('/', '\\');
        section->entries.append(qMakePair(key, line.mid(equals + 1).trimmed()));
    }
    return true;
}

const QByteArray *IniFile::rawValue(const QString &key) const
{
    const QPair<QByteArray, QByteArray> split = splitKey(key);
    const QByteArray &sectionName = split.first;
    const QByteArray &entryKey = split.second;
    for (const Section &section : m_sections) {
        if (section.name != sectionName)
            continue;
        // The last of duplicated keys wins, as for QSettings.
        for (auto it = section.entries.crbegin(); it != section.entries.crend(); ++it) {
            if (it->first == entryKey)
                return &it->second;
        }
    }
    return nullptr;
}

void IniFile::setRaw(const QString &key, const QByteArray &value)
{
    const QPair<QByteArray, QByteArray> split = splitKey(key);
    const QByteArray &sectionName = split.first;
    const QByteArray &entryKey = split.second;
    auto section = std::find_if(m_sections.begin(), m_sections.end(),
                                [&](const Section &s) { return s.name == sectionName; });
    if (section == m_sections.end()) {
        m_sections.append(Section{sectionName, {}});
        section = m_sections.end() - 1;
    }
    auto entry = std::find_if(section->entries.begin(), section->entries.end(),
                              [&](const QPair<QByteArray, QByteArray> &e) { return e.first == entryKey; });
    if (entry != section->entries.end()) {
        if (entry->second == value)
            return;
        entry->second = value;
    } else {
        section->entries.append(qMakePair(entryKey, value));
    }
    m_dirty = true;
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
        case '\0': result += "\\0"; escapeNextIfHexDigit = true; break;
        case '\a': result += "\\a"; break;
        case '\b': result += "\\b"; break;
        case '\f': result += "\\f"; break;
        case '\n': result += "\\n"; break;
        case '\r': result += "\\r"; break;
        case '\t': result += "\\t"; break;
        case '\v': result += "\\v"; break;
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

// Sections and keys in QSettings' own order: "General" first, the rest sorted.
QByteArray IniFile::serialise() const
{
    QVector<Section> sections = m_sections;
    std::sort(sections.begin(), sections.end(), [](const Section &a, const Section &b) {
        if ((a.name == kGeneral) != (b.name == kGeneral))
            return a.name == kGeneral;
        return a.name < b.name;
    });
    QByteArray out;
    for (Section &section : sections) {
        if (section.entries.isEmpty())
            continue;
        std::stable_sort(section.entries.begin(), section.entries.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        if (!out.isEmpty())
            out += '\n';
        out += '[' + section.name + "]\n";
        for (const auto &entry : section.entries)
            out += entry.first + '=' + entry.second + '\n';
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
    const QString temporary = m_path + QLatin1String(".tmp");
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
    if (!m_dirty || !m_writable)
        return !m_dirty;
    if (!writeAtomically(serialise())) {
        if (!m_writeFailed)
            TUNER_WAR() << m_path << "keeps its changes in memory until a write succeeds.";
        m_writeFailed = true;
        return false;
    }
    m_writeFailed = false;
    m_dirty = false;
    ++m_rewrites;
    return true;
}

} // namespace tuner
