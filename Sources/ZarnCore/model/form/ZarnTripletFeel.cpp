// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnTripletFeel.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {
namespace {

constexpr auto texts =
    utils::enumTable<TripletFeel>(utils::KeyMatch::Exact,
                                  {
                                      {TripletFeel::NoTripletFeel, "NoTripletFeel"},
                                      {TripletFeel::Triplet8th, "Triplet8th"},
                                      {TripletFeel::Triplet16th, "Triplet16th"},
                                      {TripletFeel::Dotted8th, "Dotted8th"},
                                      {TripletFeel::Dotted16th, "Dotted16th"},
                                      {TripletFeel::Scottish8th, "Scottish8th"},
                                      {TripletFeel::Scottish16th, "Scottish16th"},
                                  });
static_assert(texts.isConsistent());

} // namespace

QString tripletFeelToQString(TripletFeel feel)
{
    const auto text = texts.text(feel);
    if (!text)
        return QStringLiteral("Unknown (%0)").arg(static_cast<int>(feel));
    return QString::fromLatin1(text->data(), static_cast<int>(text->size()));
}

TripletFeel tripletFeelFromQString(const QString &text)
{
    return texts.valueOrFirst(text.toStdString());
}

} // namespace zarn
