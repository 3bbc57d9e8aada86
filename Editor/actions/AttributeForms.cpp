// SPDX-License-Identifier: MIT
#include "actions/AttributeForms.h"

#include "actions/AttributeText.h"
#include "actions/NoteForms.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(AttributeForms)
};

constexpr int passCount = 31;

/// Whether whole numbers of the range stand for passes, a bit for each.
bool arePasses(const AttributeRange &range)
{
    return range.lowest == static_cast<double>(std::numeric_limits<int>::min());
}

QString passesText(int bits)
{
    QStringList passes;
    for (int pass = 0; pass < passCount; ++pass)
        if ((bits >> pass & 1) != 0)
            passes << QString::number(pass + 1);
    return passes.join(QStringLiteral(", "));
}

std::optional<int> passesOf(const QString &text)
{
    int bits = 0;
    for (const QString &word : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int pass = word.trimmed().toInt(&isNumber);
        if (!isNumber || pass < 1 || pass > passCount)
            return std::nullopt;
        bits |= 1 << (pass - 1);
    }
    return bits;
}

const Staff *staffOf(const ActionContext &context)
{
    return context.document.cursor().findStaff();
}

int stringsOf(const ActionContext &context)
{
    const Staff *const staff = staffOf(context);
    return staff != nullptr ? std::max(static_cast<int>(staff->tuning().stringCount()), 1) : 1;
}

/// Signs of which a note has one at most.
constexpr AccentFlag lengths[] = {AccentFlag::Staccato, AccentFlag::Staccatissimo};
constexpr AccentFlag weights[] = {AccentFlag::Accent, AccentFlag::HeavyAccent,
                                  AccentFlag::SoftAccent};

/// The place of the sign that is there, behind "none".
template <std::size_t size>
int chosenOf(AccentFlags flags, const AccentFlag (&signs)[size])
{
    const auto found =
        std::find_if(signs, signs + size, [flags](AccentFlag sign) { return flags.has(sign); });
    return found == signs + size ? 0 : static_cast<int>(found - signs) + 1;
}

/// What a form asks for each kind of value.
struct Asker {
    Form &form;
    const ActionContext &context;
    const AttributeRange &range;

    void operator()(bool isOn) const { form.turn("value", Text::tr("&On"), isOn); }
    void operator()(int number) const
    {
        if (arePasses(range))
            form.text("value", Text::tr("&Passes"), passesText(number),
                      Text::tr("Such as 1, 2; empty for all."));
        else
            form.number("value", Text::tr("&Value"), number, static_cast<int>(range.lowest),
                        static_cast<int>(range.highest));
    }
    void operator()(double number) const
    {
        form.decimal("value", Text::tr("&Value"), number, range.lowest, range.highest);
    }
    void operator()(const std::string &text) const
    {
        form.text("value", Text::tr("&Text"), QString::fromStdString(text));
    }
    void operator()(const Strum &strum) const
    {
        form.choice("direction", Text::tr("&Direction"),
                    {Text::tr("none"), Text::tr("upwards"), Text::tr("downwards")},
                    static_cast<int>(strum.direction))
            .number("length", Text::tr("&Length"), strum.length, 0, Strum::LongestLength,
                    Text::tr("From the first note to the last, in 960ths of a quarter; 0 for the "
                             "usual length."))
            .choice("anchor", Text::tr("On the &beat"),
                    {Text::tr("its first note"), Text::tr("its last note")},
                    static_cast<int>(strum.anchor));
    }
    void operator()(const Barre &barre) const
    {
        // Players count strings from the highest on, a barre from the lowest.
        const int count = stringsOf(context);
        int highest = 1;
        int lowest = count;
        if (barre.isHalf()) {
            while (highest < count && (barre.strings >> (count - highest) & 1) == 0)
                ++highest;
            while (lowest > highest && (barre.strings >> (count - lowest) & 1) == 0)
                --lowest;
        }
        const Staff *const staff = staffOf(context);
        form.number("fret", Text::tr("&Fret"), barre.fret, 0,
                    staff != nullptr ? static_cast<int>(staff->fretCount()) : 0,
                    Text::tr("0 for no barre."))
            .number("first", Text::tr("From &string"), highest, 1, count)
            .number("last", Text::tr("&To string"), lowest, 1, count);
    }
    void operator()(AccentFlags flags) const
    {
        form.choice("length", Text::tr("&Length"),
                    {Text::tr("none"), Text::tr("Staccato"), Text::tr("Staccatissimo")},
                    chosenOf(flags, lengths))
            .choice("weight", Text::tr("&Weight"),
                    {Text::tr("none"), Text::tr("Accent"), Text::tr("Heavy accent"),
                     Text::tr("Soft accent")},
                    chosenOf(flags, weights))
            .turn("tenuto", Text::tr("&Tenuto"), flags.has(AccentFlag::Tenuto));
    }
    void operator()(const std::optional<utils::rational> &quarters) const
    {
        form.text("value", Text::tr("&Quarters"),
                  quarters ? QString::fromStdString(quarters->toString()) : QString(),
                  Text::tr("Such as 3 or 7/2; empty for what the meter says."));
    }
    void operator()(const BeamGroups &groups) const
    {
        form.text("value", Text::tr("&Beams"), QString::fromStdString(groups.toString()),
                  Text::tr("Beats joined by each beam, such as 2+2+3; empty for the usual "
                           "grouping."));
    }
    template <class Other>
    void operator()(const Other &value) const
    {
        form.text("value", Text::tr("&Value"), QString::fromStdString(range.toText(value)),
                  QString::fromStdString(range.description()));
    }
};

using Answer = std::optional<AttributeValue>;

/// What the answers say, for each kind of value.
struct Reader {
    const QVariantMap &given;
    const ActionContext &context;
    const AttributeRange &range;

    QVariant at(const char *id) const { return given.value(QLatin1String(id)); }
    std::string text() const { return at("value").toString().trimmed().toStdString(); }

    Answer operator()(bool) const { return AttributeValue(at("value").toBool()); }
    Answer operator()(int) const
    {
        if (!arePasses(range))
            return AttributeValue(at("value").toInt());
        const auto passes = passesOf(at("value").toString());
        return passes ? Answer(*passes) : std::nullopt;
    }
    Answer operator()(double) const { return AttributeValue(at("value").toDouble()); }
    Answer operator()(const std::string &) const
    {
        return AttributeValue(at("value").toString().toStdString());
    }
    Answer operator()(const Strum &) const
    {
        Strum strum;
        strum.direction = static_cast<Direction>(at("direction").toInt());
        if (strum.direction == Direction::None)
            return AttributeValue(strum);
        strum.length = static_cast<std::uint16_t>(at("length").toInt());
        strum.anchor = static_cast<StrumAnchor>(at("anchor").toInt());
        return AttributeValue(strum);
    }
    Answer operator()(const Barre &) const
    {
        Barre barre;
        barre.fret = static_cast<std::uint8_t>(at("fret").toInt());
        const int count = stringsOf(context);
        const auto [highest, lowest] = std::minmax({at("first").toInt(), at("last").toInt()});
        const bool isHalf = barre.fret != 0 && (highest > 1 || lowest < count);
        for (int string = highest; isHalf && string <= lowest; ++string)
            barre.strings = static_cast<std::uint16_t>(barre.strings | 1U << (count - string));
        return AttributeValue(barre);
    }
    Answer operator()(AccentFlags) const
    {
        AccentFlags flags;
        const int length = at("length").toInt();
        const int weight = at("weight").toInt();
        if (length > 0)
            flags = flags.with(lengths[length - 1]);
        if (weight > 0)
            flags = flags.with(weights[weight - 1]);
        if (at("tenuto").toBool())
            flags = flags.with(AccentFlag::Tenuto);
        return AttributeValue(flags);
    }
    Answer operator()(const std::optional<utils::rational> &) const
    {
        return range.fromText(text().empty() ? "None" : text());
    }
    template <class Other>
    Answer operator()(const Other &) const
    {
        return range.fromText(text());
    }
};

using OwnForm = Change (*)(const ActionContext &);

OwnForm ownFormOf(BeatAttribute id)
{
    return id == BeatAttribute::WhammyBar ? askWhammyBar : nullptr;
}

OwnForm ownFormOf(NoteAttribute id)
{
    switch (id) {
    case NoteAttribute::Bend:
        return askBend;
    case NoteAttribute::Harmonic:
        return askHarmonic;
    case NoteAttribute::Trill:
        return askTrill;
    default:
        return nullptr;
    }
}

OwnForm ownFormOf(BarAttribute)
{
    return nullptr;
}

OwnForm ownFormOf(MasterBarAttribute)
{
    return nullptr;
}

/// Names of numbers that count something.
template <class Id>
QStringList namesOf(Id id)
{
    if constexpr (std::is_same_v<Id, BeatAttribute>)
        if (id == BeatAttribute::Tremolo)
            return {Text::tr("none"), Text::tr("eighths"), Text::tr("sixteenths"),
                    Text::tr("thirty-seconds"), Text::tr("sixty-fourths")};
    return {};
}

} // namespace

bool hasOwnForm(BeatAttribute id)
{
    return ownFormOf(id) != nullptr;
}

bool hasOwnForm(NoteAttribute id)
{
    return ownFormOf(id) != nullptr;
}

bool hasOwnForm(BarAttribute id)
{
    return ownFormOf(id) != nullptr;
}

bool hasOwnForm(MasterBarAttribute id)
{
    return ownFormOf(id) != nullptr;
}

template <class Node>
Change askAttribute(const ActionContext &context, typename AttributeOf<Node>::Id id)
{
    if (const OwnForm own = ownFormOf(id))
        return own(context);
    const auto &row = rowOf(id);
    const QString name = attributeText(row.name);
    const auto held = valueAtCursor<Node>(context.document, id);
    const AttributeValue present = held ? *held : defaultOf(row);
    const QStringList names = namesOf(id);
    Form form(name);
    if (names.isEmpty())
        std::visit(Asker{form, context, row.range}, present.held());
    else
        form.choice("value", Text::tr("&In"), names, present.to<int>());
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const Answer value = std::visit(Reader{*given, context, row.range}, present.held());
    if (!value || !row.range.contains(*value)) {
        Q_EMIT context.document.refused(
            Text::tr("This is no value of \"%1\"; nothing was changed.").arg(name));
        return nullptr;
    }
    return [&document = context.document, id, value](Score &score) {
        return setSelected<Node>(document, score, id, *value);
    };
}

template Change askAttribute<Beat>(const ActionContext &, BeatAttribute);
template Change askAttribute<Note>(const ActionContext &, NoteAttribute);
template Change askAttribute<Bar>(const ActionContext &, BarAttribute);
template Change askAttribute<MasterBar>(const ActionContext &, MasterBarAttribute);

QString valueText(const AttributeRange &range, const AttributeValue &value)
{
    if (arePasses(range))
        return passesText(value.to<int>());
    if (const auto *const barre = std::get_if<Barre>(&value.held()); barre != nullptr)
        return barre->fret == 0
            ? attributeText("None")
            : (barre->isHalf() ? QString::fromUtf8("½ %1") : QStringLiteral("%1")).arg(barre->fret);
    if (const auto *const trill = std::get_if<Trill>(&value.held()); trill != nullptr)
        if (trill->interval == 0)
            return attributeText("None");
    return QString::fromStdString(range.toText(value));
}

} // namespace zarn::editor
