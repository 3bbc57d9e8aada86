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
            return isNumber() && (isExtension(_next->degree) || _next->degree.alteration != 0)
                && change(*_next++);
        case Type::Number:
            return (token.degree.alteration != 0 || (_mayBeBare && isExtension(token.degree)))
                && change(token);
        case Type::Major:
            return isNumber() && isPlainSeventh(*_next) && !_degrees.contains({7, 0})
                && change(*_next++);
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

    /// A number with an accidental stands in the place of the plain degree, when there is one.
    bool change(const SymbolToken &token)
    {
        _degrees.remove({token.degree.number, 0});
        return _degrees.insert(token.degree);
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
        if (!omit({3, 0}))
            return false;
        if (!isNumber())
            return _degrees.insert({4, 0});
        const Degree degree = (_next++)->degree;
        return (degree.number == 2 || degree.number == 4) && _degrees.insert(degree);
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

/// Takes "/E" off the end; invalid when there is no bass.
PitchClass takeBass(std::string_view &text)
{
    const auto slash = text.rfind('/');
    if (slash == std::string_view::npos)
        return {};
    std::string_view rest = trimmed(text.substr(slash + 1));
    const PitchClass bass = takePitchClass(rest);
    if (!bass || !rest.empty())
        return {};
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
    std::string_view rest = trimmed(*ascii);
    const PitchClass root = takePitchClass(rest);
    if (!root)
        return std::nullopt;
    const PitchClass bass = takeBass(rest);
    std::optional<Chord> chord;
    if (const ChordKind *const kind = ChordKind::fromText(rest))
        chord = Chord(root, *kind);
    else if (const auto tokens = symbolTokens(rest))
        if (const auto degrees = degreesOf(*tokens))
            chord = fromDegrees(root, *degrees);
    if (chord)
        chord->_bass = bass;
    return chord;
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
