// SPDX-License-Identifier: MIT
// Chord symbols.
#include <ZarnCore/chords/ZarnChord.h>

#include <ZarnCore/chords/ChordSymbolTokens.h>

#include <cctype>

namespace zarn::chord {

namespace {

using Type = SymbolToken::Type;
using Token = const SymbolToken *;

/// What changes a kind: "(b9,#11)", "add9", "no3", "sus4", "/9". Each function takes its tokens
/// off the front and answers false when they are nothing of the kind.
class Changes {
public:
    Changes(DegreeList &degrees, Token begin, Token end) noexcept
        : _degrees(degrees), _next(begin), _end(end)
    {
    }

    bool applyAll()
    {
        while (_next != _end)
            if (!applyNext())
                return false;
        return true;
    }

private:
    bool applyNext()
    {
        const SymbolToken token = *_next++;
        switch (token.type) {
        case Type::Open:
            _mayBeBare = true;
            return true;
        case Type::Close:
            _mayBeBare = false;
            return true;
        case Type::Comma:
            _mayBeBare = true;
            return true;
        case Type::Slash:
            return isNumber() && changeBehindSlash(*_next++);
        case Type::Number:
            return (token.degree.alteration != 0 || (_mayBeBare && isExtension(token.degree)))
                && change(token);
        case Type::Major:
            return isNumber() && isPlainSeventh(*_next) && !_degrees.contains({7, 0})
                && raiseSeventh(*_next++);
        case Type::Add:
            return add();
        case Type::Omit:
            return isNumber() && omit((_next++)->degree);
        case Type::Suspended:
            return suspend();
        default:
            return false;
        }
    }

    bool isNumber() const noexcept { return _next != _end && _next->type == Type::Number; }
    static bool isPlainSeventh(const SymbolToken &token) noexcept
    {
        return token.degree == Degree{7, 0};
    }
    static bool isExtension(Degree degree) noexcept
    {
        return degree.alteration == 0
            && (degree.number == 6 || degree.number == 9 || degree.number == 11
                || degree.number == 13);
    }

    /// "Csus4/7" has the seventh of a dominant chord, and "C7/4" is suspended.
    bool changeBehindSlash(const SymbolToken &token)
    {
        if (isPlainSeventh(token) && _degrees.find(7) == nullptr)
            return _degrees.insert({7, -1});
        if (token.degree == Degree{4, 0} && _degrees.contains({3, 0})) {
            _degrees.remove({3, 0});
            return _degrees.insert(token.degree);
        }
        return (isExtension(token.degree) || token.degree.alteration != 0) && change(token);
    }

    /// "Cm9(maj7)".
    bool raiseSeventh(const SymbolToken &token)
    {
        _degrees.remove({7, -1});
        return _degrees.insert(token.degree);
    }

    /// A number with an accidental stands in the place of the plain degree, when there is one.
    bool change(const SymbolToken &token)
    {
        _degrees.remove({token.degree.number, 0});
        return _degrees.insert(meantBy(token.degree));
    }

    /// "#7" is a major seventh, and "b10" the ninth of blues.
    Degree meantBy(Degree degree) const noexcept
    {
        const bool isRaisedSeventh = degree == Degree{7, 1} && _degrees.find(7) == nullptr;
        return isRaisedSeventh ? Degree{7, 0} : degree == Degree{10, -1} ? Degree{9, 1} : degree;
    }

    /// "add7" is said of major and of minor sevenths, so it is neither.
    bool add()
    {
        const bool isMajor = _next != _end && _next->type == Type::Major;
        if (isMajor)
            ++_next;
        if (!isNumber() || isPlainSeventh(*_next) != isMajor)
            return false;
        return _degrees.insert((_next++)->degree);
    }

    bool omit(Degree degree)
    {
        const Degree *const own =
            _degrees.contains(degree) ? &degree : _degrees.find(degree.number);
        if (own == nullptr)
            return false;
        _degrees.remove(Degree(*own));
        return true;
    }

    bool suspend()
    {
        const bool isSuspended = _degrees.find(2) != nullptr || _degrees.find(4) != nullptr;
        if (!omit({3, 0}) && !isSuspended)
            return false;
        if (!isNumber())
            return _degrees.insert({4, 0});
        const Degree degree = (_next++)->degree;
        return isSuspension(degree) && _degrees.insert(degree) && suspendTwice(degree);
    }

    static bool isSuspension(Degree degree) noexcept
    {
        return degree.number == 2 || degree.number == 4;
    }

    /// "sus24" and "sus2/4" have both.
    bool suspendTwice(Degree first)
    {
        const bool isApart =
            _next != _end && (_next->type == Type::Slash || _next->type == Type::Comma);
        const Token second = isApart ? _next + 1 : _next;
        const bool isBoth = second != _end && second->type == Type::Number
            && second->degree.number == 6 - first.number && second->degree.alteration == 0;
        if (!isBoth)
            return true;
        _next = second + 1;
        return _degrees.insert(second->degree);
    }

    DegreeList &_degrees;
    Token _next;
    Token _end;
    bool _mayBeBare = false;
};

/// The kind in front, as long as it goes, and what is behind it.
std::optional<DegreeList> degreesOf(const std::vector<SymbolToken> &tokens)
{
    const Token begin = tokens.data();
    const Token end = begin + tokens.size();
    for (Token middle = end;; --middle) {
        if (const ChordKind *const kind = kindOfSymbol(begin, middle)) {
            DegreeList degrees = kind->degrees();
            if (Changes(degrees, middle, end).applyAll())
                return degrees;
        }
        if (middle == begin)
            return std::nullopt;
    }
}

/// The chord of what stands behind a root.
std::optional<Chord> chordOn(const PitchClass &root, std::string_view text)
{
    if (const ChordKind *const kind = ChordKind::fromText(text))
        return Chord(root, *kind);
    if (const auto tokens = symbolTokens(text))
        if (const auto degrees = degreesOf(*tokens))
            return Chord::fromDegrees(root, *degrees);
    return std::nullopt;
}

bool isNoChord(std::string_view text)
{
    std::string letters;
    for (const char letter : text)
        if (letter != '.' && letter != ' ')
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return letters == "nc" || letters == "nochord";
}

std::string_view trimmed(std::string_view text) noexcept
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// What a text is as a whole; invalid when it is no name of a tone. Basses are written in lower
/// case too, but a lone "b" is B flat to some and B to others.
PitchClass bassOf(std::string_view text)
{
    if (text.empty() || text == "b")
        return {};
    std::string name(text);
    name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
    for (const auto take : {takePitchClass, takeGermanPitchClass}) {
        std::string_view rest = name;
        const PitchClass bass = take(rest);
        if (bass && rest.empty())
            return bass;
    }
    return {};
}

/// Takes "/E" off the end; invalid when there is no bass.
PitchClass takeBass(std::string_view &text)
{
    const auto slash = text.rfind('/');
    if (slash == std::string_view::npos)
        return {};
    const PitchClass bass = bassOf(trimmed(text.substr(slash + 1)));
    if (bass)
        text = trimmed(text.substr(0, slash));
    return bass;
}

std::string addedText(Degree degree)
{
    return degree == Degree{7, 0} ? "addmaj7" : "add" + degree.toText();
}

/// "no5"; with its accidental when there are two with the number.
std::string omittedText(Degree degree, const DegreeList &own)
{
    int count = 0;
    for (const Degree &other : own)
        count += int(other.number == degree.number);
    return "no" + (count > 1 ? degree.toText() : std::to_string(degree.number));
}

std::string changesText(const Chord &chord)
{
    std::string text;
    const auto append = [&](const std::string &item) { text += (text.empty() ? "" : ",") + item; };
    // What goes, goes first: "no3" is the third of the kind.
    for (const Degree &degree : chord.omitted())
        append(omittedText(degree, chord.kind().degrees()));
    for (const Degree &degree : chord.altered())
        append(degree.toText());
    for (const Degree &degree : chord.added())
        append(addedText(degree));
    return text.empty() ? text : "(" + text + ")";
}

std::string pitchText(const PitchClass &pitch)
{
    return pitch.toString().toStdString();
}

} // namespace

std::optional<Chord> Chord::fromText(std::string_view text)
{
    if (isNoChord(text))
        return Chord();
    const auto ascii = asciiSymbol(text);
    if (!ascii)
        return std::nullopt;
    std::string_view symbol = trimmed(*ascii);
    const PitchClass bass = takeBass(symbol);
    // "Asus4" is suspended, and only what is nothing else stands on A flat.
    for (const auto take : {takePitchClass, takeGermanPitchClass}) {
        std::string_view rest = symbol;
        const PitchClass root = take(rest);
        auto chord = root ? chordOn(root, rest) : std::nullopt;
        if (!chord)
            continue;
        if (bass)
            chord->setBass(bass);
        return chord;
    }
    return std::nullopt;
}

std::string Chord::toText() const
{
    if (isNone())
        return "N.C.";
    const Chord plain = simplified();
    return pitchText(_root) + std::string(plain._kind->text()) + changesText(plain)
        + (plain._bass ? "/" + pitchText(plain._bass) : "");
}

std::string Chord::toDisplayText() const
{
    if (isNone())
        return toText();
    const std::string ascii = toText();
    std::string text;
    for (std::size_t i = 0; i < ascii.size(); ++i) {
        // A letter is followed by accidentals, and a number preceded by them.
        const bool isFlat = ascii[i] == 'b' && i > 0;
        text += ascii[i] == '#' ? "♯" : isFlat ? "♭" : std::string(1, ascii[i]);
    }
    return text;
}

} // namespace zarn::chord
