// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Beat/ZarnChordSets.h>
#include <ZarnCore/commands/ZarnChangeMarks.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <optional>
#include <utility>
#include <vector>

namespace zarn {

/// Base of commands that give the beats or notes of a range attributes of the table, by their ids.
/// The rows say which nodes take an attribute, what it excludes, and which event tells of it. A
/// chord joins the working sets of its staff; `ChordsChanged` tells of every staff then.
///
/// A concrete command is a name and an `init` that ends with `prepare`.
template <class Node>
class ZARNCORE_EXPORT SetByTable : public ChangeMarks<Node> {
public:
    using Row = std::decay_t<decltype(attributesOf<Node>()[0])>;
    using Id = typename Row::Id;
    using Values = std::vector<std::pair<Id, AttributeValue>>;

protected:
    explicit SetByTable(const QString &name) : ChangeMarks<Node>(name) { }

    static bool isAttribute(Id id) noexcept
    {
        return static_cast<std::size_t>(id) < attributesOf<Node>().size();
    }

    /// Whether the names of the attributes are recorded with their values.
    enum class Recorded { Values, NamesAndValues };

    /// Remembers and records what is to be done. False when nothing is to be set, for a value
    /// outside its range, for attributes that exclude each other or have commands of their own
    /// alone, and when no node takes any of them.
    bool prepare(Score *score, const ScoreModelRange &range, Values values,
                 Recorded recorded = Recorded::Values);

    /// An attribute to be set.
    struct Given {
        const Row *row;
        AttributeValue value;
        bool isDefault;
    };

    /// In the order of their ids.
    const std::vector<Given> &given() const noexcept { return _given; }
    void setGiven(std::size_t number, const AttributeValue &value);

    /// Whether a node takes an attribute, by its row.
    static bool takes(const Given &given, const MarkedPlace &place, const Beat &beat,
                      const Node &node);

    bool takes(const MarkedPlace &place, const Beat &beat, const Node &node) const override;
    void change(const MarkedPlace &place, Beat &beat, Node &node) override;

private:
    std::vector<SpanKind> givenSpans() const final;
    void announce() final;
    void followChange(ScoreModel &model) final;
    void followReturn(ScoreModel &model) final;

    std::vector<Given> _given;
    ChordSets _chordSets;
};

extern template class SetByTable<Beat>;
extern template class SetByTable<Note>;

/// A command that sets one attribute of beats or notes: all that one adds is its name.
template <auto Id, class Value, class Node = Beat>
class SetMark : public SetByTable<Node> {
public:
    /// Every beat or note of the range that takes the attribute; the others are passed over. False
    /// when none does, and for a value that is none.
    bool init(Score *score, const ScoreModelRange &range, const Value &value)
    {
        ZARN_ASSERT_IN(_function, score != NULL);
        return this->prepare(score, range, {{Id, AttributeValue(value)}});
    }

protected:
    /// The name of `init` with its namespace and class ends with that of the command.
    explicit SetMark(const char *function, const QString &name)
        : SetByTable<Node>(name), _function(function)
    {
    }

private:
    const char *_function;
};

} // namespace zarn
