// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

std::shared_ptr<zarn::ScoreModel> readSoundly(std::string_view input)
{
    zarn::io::ImportReport report;
    const auto model = fuzz::readDocument(zarn::io::NativeImporter(), "score.zarn", input, report);
    if (model == nullptr)
        return model;
    // A document may break rules of the tree without being unreadable, but each of them is told;
    // of notes on strings that are not there, once for their staff.
    for (const std::string &problem : zarn::checkModel(*model)) {
        const bool isOfString = problem.find("note on a string") != std::string::npos;
        if (!report.hasProblem(isOfString ? "a note stands on string index" : problem))
            fuzz::breakLaw("broken rules of the tree are reported", problem);
    }
    return model;
}

/// A JSON value without one of its members or elements, counted through all of its levels.
class WithoutOne {
public:
    explicit WithoutOne(int number) : _left(number) { }

    QJsonValue of(const QJsonValue &value)
    {
        if (value.isObject()) {
            QJsonObject object;
            const QJsonObject from = value.toObject();
            for (auto member = from.begin(); member != from.end(); ++member)
                if (_left-- != 0)
                    object.insert(member.key(), of(member.value()));
            return object;
        }
        if (value.isArray()) {
            QJsonArray array;
            for (const QJsonValue element : value.toArray())
                if (_left-- != 0)
                    array.append(of(element));
            return array;
        }
        return value;
    }

    /// Whether there were that many.
    bool isLeftOut() const noexcept { return _left < 0; }

private:
    int _left;
};

/// Small documents are read without each of their parts as well: what a part leads to is gone then.
void readWithoutEachPart(std::string_view input)
{
    constexpr std::size_t longest = 2000;
    if (input.size() > longest)
        return;
    const auto document =
        QJsonDocument::fromJson(QByteArray(input.data(), static_cast<int>(input.size())));
    if (!document.isObject())
        return;
    for (int number = 0;; ++number) {
        WithoutOne without(number);
        const QJsonValue less = without.of(document.object());
        if (!without.isLeftOut())
            return;
        readSoundly(QJsonDocument(less.toObject()).toJson(QJsonDocument::Compact).toStdString());
    }
}

} // namespace

/// The input is a native document.
void fuzz::check(std::string_view input)
{
    const auto model = readSoundly(input);
    if (model == nullptr)
        return;
    expectToBeUsable(*model);
    expectToComeBack(*model);
    readWithoutEachPart(input);
}
