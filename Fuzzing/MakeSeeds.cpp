// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/DiskFileSystem.h>

#include <support/RandomScore.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <cstdio>
#include <set>

namespace {

/// Longer seeds make a fuzzer slow.
constexpr int maximumSeed = 32 << 10;

/// The words of a format, in the form that libFuzzer reads.
class Dictionary {
public:
    void add(const QString &word)
    {
        static const QRegularExpression plain(QStringLiteral("^[ -~]{1,40}$"));
        if (plain.match(word).hasMatch())
            _words.insert(word);
    }

    QByteArray text() const
    {
        QByteArray text;
        for (QString word : _words) {
            word.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
            word.replace(QLatin1Char('"'), QLatin1String("\\\""));
            text += '"' + word.toLatin1() + "\"\n";
        }
        return text;
    }

private:
    std::set<QString> _words;
};

class Seeds {
public:
    explicit Seeds(const QString &root) : _root(root) { }

    void write(const QString &name, const QByteArray &bytes) const
    {
        if (bytes.size() > maximumSeed)
            return;
        const QString path = _root + QLatin1Char('/') + name;
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw zarn::CoreException(path.toStdString() + ": " + file.errorString().toStdString(),
                                      __FILE__, __func__, __LINE__);
    }

private:
    QString _root;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addWords(const QJsonValue &json, Dictionary &words)
{
    const QJsonObject object = json.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        words.add(QStringLiteral("\"%1\":").arg(member.key()));
        addWords(member.value(), words);
    }
    for (const QJsonValue &element : json.toArray())
        addWords(element, words);
    if (json.isString())
        words.add(QStringLiteral("\"%1\"").arg(json.toString()));
}

void addWords(const QByteArray &xml, Dictionary &words)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            words.add(QStringLiteral(" %1=\"%2\"")
                          .arg(attribute.qualifiedName().toString(), attribute.value().toString()));
        if (reader.isCharacters() && !reader.isWhitespace())
            words.add(reader.text().toString());
    }
}

/// Scores that use every attribute, and their words.
void makeNative(const Seeds &seeds)
{
    Dictionary words;
    for (unsigned number = 0; number < 40; ++number) {
        const auto model = test::RandomScore(number).make(number % 3, 1 + number % 3);
        const auto document = QByteArray::fromStdString(zarn::io::NativeExporter().toText(*model));
        addWords(QJsonDocument::fromJson(document).object(), words);
        seeds.write(QStringLiteral("native/random-%1.zarn").arg(number), document);
    }
    seeds.write(QStringLiteral("native.dict"), words.text());
}

/// What the scores become as native documents and in archives, and the words of MusicXML.
void makeFromScores(const QStringList &scores, const Seeds &seeds)
{
    Dictionary words;
    for (std::size_t tag = 1; tag < zarn::io::tagCount; ++tag) {
        const auto name = QString::fromLatin1(zarn::io::tagName(static_cast<zarn::io::Tag>(tag)));
        words.add(QStringLiteral("<%1>").arg(name));
        words.add(QStringLiteral("</%1>").arg(name));
    }
    for (const QString &path : scores) {
        const QByteArray xml = contentOf(path);
        const QString name = QFileInfo(path).completeBaseName();
        addWords(xml, words);
        seeds.write(QStringLiteral("mxl/%1.txt").arg(name), "@ score.musicxml\n" + xml);
        filesystem::DiskFileSystem disk;
        zarn::io::ImportReport report;
        const auto handle = disk.open(path.toStdString(), filesystem::OpenMode::Read);
        if (handle == nullptr)
            continue;
        const auto model = zarn::io::MusicXmlImporter().read(*handle, report);
        seeds.write(QStringLiteral("native/%1.zarn").arg(name),
                    QByteArray::fromStdString(zarn::io::NativeExporter().toText(*model)));
    }
    seeds.write(QStringLiteral("musicxml.dict"), words.text());
    seeds.write(QStringLiteral("mxl.dict"), words.text());
}

/// The first entries of the catalogues that the library brings, one by one.
void makeCatalogues(const Seeds &seeds)
{
    constexpr int entries = 6;
    Dictionary words;
    for (const auto &[path, member] :
         {std::pair(":/instrumentSet/ZarnTunings.json", "tunings"),
          std::pair(":/instrumentSet/ZarnInstrumentSets.json", "instrumentSets")}) {
        const auto all = QJsonDocument::fromJson(contentOf(QString::fromLatin1(path)))
                             .object()
                             .value(QLatin1String(member))
                             .toArray();
        for (int i = 0; i < std::min(all.size(), entries); ++i) {
            addWords(all[i], words);
            seeds.write(QStringLiteral("catalogues/%1-%2.json").arg(QLatin1String(member)).arg(i),
                        QJsonDocument(QJsonArray{all[i]}).toJson(QJsonDocument::Compact));
        }
    }
    for (const char *folder : {":/soundbanks", ":/soundbankPatches", ":/notationPatch"}) {
        const auto files = QDir(QString::fromLatin1(folder)).entryInfoList(QDir::Files, QDir::Name);
        for (int i = 0; i < std::min(files.size(), entries); ++i) {
            const QByteArray json = contentOf(files[i].filePath());
            addWords(QJsonDocument::fromJson(json).object(), words);
            seeds.write(QStringLiteral("catalogues/") + files[i].fileName(), json);
        }
    }
    seeds.write(QStringLiteral("catalogues.dict"), words.text());
}

void makeLogs(const Seeds &seeds)
{
    const QByteArray log = "[INFO] a run\r\n[QUIT]\r\n";
    seeds.write(QStringLiteral("packedlog/log.lgz"), qCompress(log));
    seeds.write(QStringLiteral("packedlog/long.lgz"), qCompress(log.repeated(200)));
    seeds.write(QStringLiteral("packedlog/empty.lgz"), qCompress(QByteArray()));
}

} // namespace

/// Writes seeds and dictionaries into a folder: from the library's own tables and catalogues, from
/// random scores, and from the MusicXML files that the other arguments name.
int main(int argc, char *argv[])
{
    if (argc < 2) {
        std::fprintf(stderr, "Usage: fuzz_make_seeds FOLDER [MUSICXML...]\n");
        return 2;
    }
    try {
        const Seeds seeds(QString::fromLocal8Bit(argv[1]));
        QStringList scores;
        for (int i = 2; i < argc; ++i)
            scores.append(QString::fromLocal8Bit(argv[i]));
        makeNative(seeds);
        makeFromScores(scores, seeds);
        makeCatalogues(seeds);
        makeLogs(seeds);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
