#include "inifile.h"

#include "tunerlog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QVector>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

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

// A key or section name as QSettings reads it: '\' separates groups.
QByteArray unescapedKey(QByteArray key)
{
    key = key.trimmed();
    key.replace('\\', '/');
    return key;
}

// The value up to a ';' comment outside quotes, without blanks at the ends.
QByteArray valueOf(const QByteArray &text)
{
    bool quoted = false;
    int end = 0;
    for (; end < text.size(); ++end) {
        const char c = text.at(end);
        if (c == '"')
            quoted = !quoted;
        else if (c == '\\')
            ++end;
        else if (c == ';' && !quoted)
            break;
    }
    return text.left(end).trimmed();
}

struct ParsedIni
{
    QHash<QByteArray, QByteArray> values;
    int junkLines = 0; // lines QSettings skips: no key, or binary bytes
};

// QSettings' reading: a UTF-8 BOM is skipped, CR, LF and CRLF all end a
// line, the lines of a section that appears more than once are read as one
// section in file order, sections are then taken in order of their names,
// and of a key given twice the later one counts.
ParsedIni parseIni(QByteArray content)
{
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    QMap<QByteArray, QVector<QPair<QByteArray, QByteArray>>> sections; // "" is General
    QVector<QPair<QByteArray, QByteArray>> *section = &sections[QByteArray()];
    ParsedIni parsed;
    int pos = 0;
    while (pos < content.size()) {
        int end = pos;
        while (end < content.size() && content.at(end) != '\n' && content.at(end) != '\r')
            ++end;
        const QByteArray line = content.mid(pos, end - pos).trimmed();
        pos = end + 1;
        if (line.isEmpty() || line.startsWith(';'))
            continue;
        if (std::any_of(line.cbegin(), line.cend(), isControl)) {
            ++parsed.junkLines;
            continue;
        }
        if (line.startsWith('[')) {
            const int close = line.indexOf(']');
            QByteArray name = unescapedKey(line.mid(1, close < 0 ? -1 : close - 1));
            if (name == kGeneral)
                name.clear();
            section = &sections[name];
            continue;
        }
        const int equals = line.indexOf('=');
        if (equals <= 0) {
            if (!line.startsWith('#'))
                ++parsed.junkLines;
            continue;
        }
        section->append(qMakePair(unescapedKey(line.left(equals)), valueOf(line.mid(equals + 1))));
    }
    for (auto it = sections.cbegin(); it != sections.cend(); ++it) {
        const QByteArray prefix = it.key().isEmpty() ? QByteArray() : it.key() + '/';
        for (const auto &entry : it.value())
            parsed.values.insert(prefix + entry.first, entry.second);
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

void IniFile::load()
{
    // A rewrite of ours that a power loss interrupted; the file itself is whole.
    if (QFileInfo(temporaryPath()).isFile()) {
        TUNER_WAR() << temporaryPath() << "was left by an interrupted write; removed.";
        QFile::remove(temporaryPath());
    }
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
    ParsedIni parsed = parseIni(file.read(kMaxFileBytes + 1));
    file.close();
    // Only a file of which nothing at all reads as a key is not the tuner's
    // data (binary garbage, UTF-16, prose).
    if (!parsed.values.isEmpty() || parsed.junkLines == 0) {
        m_values = std::move(parsed.values);
        m_onDisk = serialise();
        return;
    }
    const QString aside = m_path + QLatin1String(".corrupt");
    QFile::remove(aside);
    if (QFile::rename(m_path, aside))
        TUNER_WAR() << m_path << "is not a valid INI file; moved aside to" << aside << "and started clean.";
    else
        TUNER_WAR() << m_path << "is not a valid INI file and cannot be moved aside; it will be replaced.";
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
    if (it != m_values.cend() && *it == value)
        return;
    m_values.insert(fileKey, value);
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

// Sections and keys in QSettings' own order: "General" first, the rest
// sorted; the first part of a path is the section, the rest is written with '\'.
QByteArray IniFile::serialise() const
{
    QMap<QByteArray, QVector<QPair<QByteArray, QByteArray>>> sections;
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it) {
        const int slash = it.key().indexOf('/');
        QByteArray section = slash < 0 ? QByteArray() : it.key().left(slash);
        QByteArray key = it.key().mid(slash + 1);
        key.replace('/', '\\');
        sections[section].append(qMakePair(key, it.value()));
    }
    QByteArray out;
    for (auto it = sections.begin(); it != sections.end(); ++it) {
        auto &entries = it.value();
        std::sort(entries.begin(), entries.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
        if (!out.isEmpty())
            out += '\n';
        out += '[' + (it.key().isEmpty() ? kGeneral : it.key()) + "]\n";
        for (const auto &entry : entries)
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
    if (!m_dirty || !m_writable)
        return !m_dirty;
    const QByteArray content = serialise();
    if (content == m_onDisk) {
        m_dirty = false;
        return true;
    }
    if (!writeAtomically(content)) {
        if (!m_writeFailed)
            TUNER_WAR() << m_path << "keeps its changes in memory until a write succeeds.";
        m_writeFailed = true;
        return false;
    }
    m_writeFailed = false;
    m_dirty = false;
    m_onDisk = content;
    ++m_rewrites;
    return true;
}

} // namespace tuner
