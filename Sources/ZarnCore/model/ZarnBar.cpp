// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBar.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

#include <algorithm>

namespace zarn {

Bar::Bar(const Bar &other)
    : std::enable_shared_from_this<Bar>(), IndexedChildLink<Staff>(), ParentNode<Bar>(other),
      _clef(other._clef), _ottavia(other._ottavia), _simileMark(other._simileMark),
      _layoutRatio(other._layoutRatio), _clefChanges(other._clefChanges)
{
    copyVoices(other);
}

Bar &Bar::operator=(const Bar &other)
{
    if (this == &other)
        return *this;
    _clef = other._clef;
    _ottavia = other._ottavia;
    _simileMark = other._simileMark;
    _layoutRatio = other._layoutRatio;
    _clefChanges = other._clefChanges;
    for (const auto &voice : _voices)
        if (voice)
            ChildLinkAccess::detach<Bar>(*voice);
    copyVoices(other);
    markOrphans();
    return *this;
}

std::shared_ptr<Bar> Bar::clone() const
{
    return ChildLinkAccess::clone(*this);
}

void Bar::copyVoices(const Bar &other)
{
    for (unsigned i = 0; i < MaxVoices; ++i) {
        _voices[i] = other._voices[i] ? other._voices[i]->clone() : nullptr;
        if (_voices[i])
            ChildLinkAccess::setPlace(*_voices[i], i);
    }
}

void Bar::linkOrphans(const std::weak_ptr<Bar> &self)
{
    for (const auto &voice : _voices)
        if (voice)
            ChildLinkAccess::attach(*voice, self);
}

unsigned Bar::staffIndex() const noexcept
{
    const auto staff = parentStaff();
    return staff ? staff->index() : 0;
}

unsigned Bar::trackIndex() const noexcept
{
    const auto staff = parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    return track ? track->index() : 0;
}

std::shared_ptr<MasterTrack> Bar::masterTrack() const
{
    const auto staff = parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    const auto model = track ? track->parentScoreModel() : nullptr;
    return model ? model->masterTrack() : nullptr;
}

std::shared_ptr<MasterBar> Bar::masterBar() const
{
    const auto master = masterTrack();
    return master ? master->masterBar(index()) : nullptr;
}

std::shared_ptr<Voice> Bar::voice(unsigned index) const
{
    linkChildren();
    return index < MaxVoices ? _voices[index] : nullptr;
}

unsigned Bar::voiceCount() const noexcept
{
    return static_cast<unsigned>(std::count_if(_voices.begin(), _voices.end(),
                                               [](const auto &voice) { return voice != nullptr; }));
}

void Bar::setVoice(unsigned index, const std::shared_ptr<Voice> &voice)
{
    ZARN_ASSERT_IN("zarn::Bar::setVoice", index < MaxVoices);
    if (_voices[index] == voice)
        return;
    if (voice)
        ChildLinkAccess::requireDetached(voice);
    if (_voices[index])
        ChildLinkAccess::detach<Bar>(*_voices[index]);
    _voices[index] = voice;
    if (!voice)
        return;
    ChildLinkAccess::attach(*voice, asParent());
    ChildLinkAccess::setPlace(*voice, index);
}

std::shared_ptr<Voice> Bar::ensureVoice(unsigned index)
{
    ZARN_ASSERT_IN("zarn::Bar::ensureVoice", index < MaxVoices);
    linkChildren();
    if (!_voices[index])
        setVoice(index, std::make_shared<Voice>());
    return _voices[index];
}

bool Bar::hasBeats() const noexcept
{
    return std::any_of(_voices.begin(), _voices.end(),
                       [](const auto &voice) { return voice && !voice->isEmpty(); });
}

Voice::Beats Bar::findBeatAtDrawingOffset(const utils::rational &offset) const
{
    Voice::Beats found;
    for (const auto &voice : _voices)
        if (auto beat = voice ? voice->beatStartingAt(offset) : nullptr)
            found.push_back(std::move(beat));
    return found;
}

utils::rational Bar::length() const
{
    const auto master = masterBar();
    return master ? master->length() : utils::rational(4);
}

void Bar::setClefChanges(std::vector<ClefChange> changes)
{
    std::stable_sort(changes.begin(), changes.end(), [](const auto &left, const auto &right) {
        return left.position < right.position;
    });
    _clefChanges.set(std::move(changes));
}

void Bar::setLayoutRatio(float ratio)
{
    ZARN_ASSERT_IN("zarn::Bar::setLayoutRatio", isLayoutRatio(ratio));
    _layoutRatio = ratio;
}

ClefType Bar::clefAt(const utils::rational &position) const
{
    ClefType clef = _clef;
    for (const ClefChange &change : clefChanges()) {
        if (position < change.position)
            break;
        clef = change.clef;
    }
    return clef;
}

bool operator==(const Bar &left, const Bar &right)
{
    if (left._clef != right._clef || left._ottavia != right._ottavia
        || left._simileMark != right._simileMark || left._layoutRatio != right._layoutRatio
        || !(left._clefChanges == right._clefChanges))
        return false;
    for (unsigned i = 0; i < Bar::MaxVoices; ++i) {
        const Voice *a = left._voices[i].get();
        const Voice *b = right._voices[i].get();
        const bool emptyA = !a || a->isEmpty();
        const bool emptyB = !b || b->isEmpty();
        if (emptyA != emptyB || (!emptyA && *a != *b))
            return false;
    }
    return true;
}

} // namespace zarn
