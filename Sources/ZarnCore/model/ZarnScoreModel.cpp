// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnScoreModel.h>

#include <ZarnCore/model/BarColumnEdit.h>
#include <ZarnCore/model/layout/PageText.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <algorithm>

namespace zarn {
namespace {

const std::string noText;

} // namespace

ScoreModel::ScoreModel() : _masterTrack(std::make_shared<MasterTrack>())
{
    markOrphans();
}

ScoreModel::ScoreModel(const ScoreModel &other)
    : std::enable_shared_from_this<ScoreModel>(), ParentNode<ScoreModel>(other),
      _masterTrack(other._masterTrack->cloneMasterTrack()), _tracks(other._tracks),
      _properties(other._properties), _headersAndFooters(other._headersAndFooters),
      _pageSetup(other._pageSetup), _systemsLayout(other._systemsLayout),
      _concertTone(other._concertTone), _defaultBarsPerSystem(other._defaultBarsPerSystem),
      _ignoreCapo(other._ignoreCapo), _printable(other._printable), _protected(other._protected),
      _views(other._views), _trackGroups(other._trackGroups)
{
    for (const auto &track : other._audioTracks)
        _audioTracks.push_back(std::make_shared<AudioTrack>(*track));
}

ScoreModel &ScoreModel::operator=(const ScoreModel &other)
{
    if (this == &other)
        return *this;
    *_masterTrack = *other._masterTrack;
    _tracks = other._tracks;
    _audioTracks.clear();
    for (const auto &track : other._audioTracks)
        _audioTracks.push_back(std::make_shared<AudioTrack>(*track));
    _properties = other._properties;
    _headersAndFooters = other._headersAndFooters;
    _pageSetup = other._pageSetup;
    _systemsLayout = other._systemsLayout;
    _concertTone = other._concertTone;
    _defaultBarsPerSystem = other._defaultBarsPerSystem;
    _ignoreCapo = other._ignoreCapo;
    _printable = other._printable;
    _protected = other._protected;
    _views = other._views;
    _trackGroups = other._trackGroups;
    markOrphans();
    return *this;
}

ScoreModel::~ScoreModel() = default;

std::shared_ptr<ScoreModel> ScoreModel::clone() const
{
    return ChildLinkAccess::clone(*this);
}

void ScoreModel::setParentScore(Score *score) noexcept
{
    _score = score;
}

void ScoreModel::linkOrphans(const std::weak_ptr<ScoreModel> &self)
{
    _masterTrack->setParentScoreModel(self.lock());
    _tracks.link(self);
}

std::shared_ptr<Track> ScoreModel::lastTrack() const
{
    return hasTracks() ? tracks().back() : nullptr;
}

std::shared_ptr<Track> ScoreModel::createTrack(InstrumentSet::Type type)
{
    return Track(type).clone();
}

std::shared_ptr<Track> ScoreModel::createAndInsertTrack(unsigned index, InstrumentSet::Type type)
{
    auto track = createTrack(type);
    insertTrack(index, track, true);
    return track;
}

void ScoreModel::addTrack(const std::shared_ptr<Track> &track)
{
    insertTrack(trackCount(), track);
}

void ScoreModel::insertTrack(unsigned index, const std::shared_ptr<Track> &track, bool alignBars)
{
    const bool isBetween = index < trackCount();
    _tracks.insert(index, track, asParent());
    if (isBetween)
        _trackGroups = groupsAfterInsertion(std::move(_trackGroups), index);
    if (!alignBars)
        return;
    const unsigned count = _masterTrack->masterBarCount();
    bool isCut = false;
    for (const auto &staff : track->staves()) {
        isCut = isCut || staff->barCount() > count;
        if (staff->barCount() < count)
            staff->addEmptyBars(count - staff->barCount());
        else if (staff->barCount() > count)
            staff->takeBars(count, staff->barCount() - 1, LinkMode::Mend);
    }
    if (isCut)
        mendBrokenSpans(*track);
}

std::shared_ptr<Track> ScoreModel::removeTrack(unsigned index)
{
    auto taken = _tracks.take(index, index);
    if (taken.empty())
        return nullptr;
    _trackGroups = groupsAfterRemoval(std::move(_trackGroups), index);
    return std::move(taken.front());
}

void ScoreModel::clearTracks()
{
    if (hasTracks())
        _tracks.take(0, trackCount() - 1);
    _trackGroups.clear();
}

void ScoreModel::swapTrack(unsigned first, unsigned second)
{
    if (hasTrackIndex(first) && hasTrackIndex(second))
        _tracks.swap(first, second);
}

void ScoreModel::moveTrack(unsigned from, unsigned to)
{
    if (!hasTrackIndex(from) || !hasTrackIndex(to) || from == to)
        return;
    _tracks.move(from, to);
    _trackGroups = groupsAfterMove(std::move(_trackGroups), from, to);
}

void ScoreModel::clear()
{
    clearTracks();
    clearAudioTracks();
    _masterTrack->clear();
}

bool ScoreModel::tryGetAudioTrack(unsigned index, std::shared_ptr<AudioTrack> &track) const
{
    if (index >= audioTrackCount())
        return false;
    track = _audioTracks[index];
    return true;
}

void ScoreModel::addAudioTrack(const std::shared_ptr<AudioTrack> &track)
{
    insertAudioTrack(audioTrackCount(), track);
}

void ScoreModel::insertAudioTrack(unsigned index, const std::shared_ptr<AudioTrack> &track)
{
    ZARN_ASSERT_IN("zarn::ScoreModel::insertAudioTrack", track != nullptr);
    _audioTracks.insert(_audioTracks.begin() + std::min(index, audioTrackCount()), track);
}

std::shared_ptr<AudioTrack> ScoreModel::removeAudioTrack(unsigned index)
{
    if (index >= audioTrackCount())
        return {};
    auto track = std::move(_audioTracks[index]);
    _audioTracks.erase(_audioTracks.begin() + index);
    return track;
}

void ScoreModel::clearAudioTracks()
{
    _audioTracks.clear();
}

void ScoreModel::swapAudioTrack(unsigned first, unsigned second)
{
    if (first < audioTrackCount() && second < audioTrackCount())
        _audioTracks[first].swap(_audioTracks[second]);
}

BarColumnSurroundings ScoreModel::insertEmptyBarColumns(unsigned index, unsigned count)
{
    return BarColumnEdit(*this).insertEmpty(index, count);
}

BarColumns ScoreModel::takeBarColumns(unsigned first, unsigned last)
{
    BarColumns taken = BarColumnEdit(*this).take(first, last);
    taken.surroundings.links.settle();
    return taken;
}

void ScoreModel::putBackBarColumns(BarColumns columns)
{
    if (columns.masterBars.empty())
        return;
    ZARN_ASSERT_IN("zarn::ScoreModel::putBackBarColumns",
                   columns.bars.size() == trackCount()
                       && columns.automations.size() == trackCount() + 1u
                       && columns.first <= _masterTrack->masterBarCount());
    for (unsigned i = 0; i < trackCount(); ++i)
        ZARN_ASSERT_IN("zarn::ScoreModel::putBackBarColumns",
                       columns.bars[i].size() == tracks()[i]->staffCount());
    BarColumnEdit(*this).putBack(std::move(columns));
}

void ScoreModel::restoreSurroundings(const BarColumnSurroundings &surroundings)
{
    BarColumnEdit(*this).restore(surroundings);
}

const std::string &ScoreModel::property(ScoreProperty property) const noexcept
{
    const auto index = static_cast<unsigned>(property);
    return index < PropertyCount ? _properties[index] : noText;
}

void ScoreModel::setScoreProperty(ScoreProperty property, const std::string &value)
{
    const auto index = static_cast<unsigned>(property);
    ZARN_ASSERT_IN("zarn::ScoreModel::setScoreProperty", index < PropertyCount);
    _properties[index] = value;
}

const std::string &ScoreModel::headerAndFooter(HeaderAndFooter place) const noexcept
{
    const auto index = static_cast<unsigned>(place);
    return index < HeaderAndFooterCount ? _headersAndFooters[index] : noText;
}

void ScoreModel::setHeaderAndFooter(HeaderAndFooter place, const std::string &text)
{
    const auto index = static_cast<unsigned>(place);
    ZARN_ASSERT_IN("zarn::ScoreModel::setHeaderAndFooter", index < HeaderAndFooterCount);
    _headersAndFooters[index] = text;
}

std::string ScoreModel::formatHeaderAndFooter(const std::string &text, unsigned page,
                                              unsigned pageCount) const
{
    return filledPageText(text, [&](const std::string &word) -> std::optional<std::string> {
        if (word == "Page")
            return std::to_string(page);
        if (word == "Pages")
            return std::to_string(pageCount);
        for (unsigned i = 0; i < PropertyCount; ++i)
            if (scorePropertyToQString(static_cast<ScoreProperty>(i)).toStdString() == word)
                return _properties[i];
        return std::nullopt;
    });
}

std::string ScoreModel::formatedHeaderAndFooter(HeaderAndFooter place, unsigned page,
                                                unsigned pageCount) const
{
    return formatHeaderAndFooter(headerAndFooter(place), page, pageCount);
}

int ScoreModel::popInFullScoreSystemsLayout()
{
    if (_systemsLayout.empty())
        return 0;
    const int last = _systemsLayout.back();
    _systemsLayout.pop_back();
    return last;
}

void ScoreModel::setViews(std::vector<ScoreView> views)
{
    ZARN_ASSERT_IN("zarn::ScoreModel::setViews", !views.empty());
    for (const ScoreView &view : views)
        ZARN_ASSERT_IN("zarn::ScoreModel::setViews", view.layout <= ViewLayout::SingleLine);
    _views = std::move(views);
}

void ScoreModel::setTrackGroups(std::vector<TrackGroup> groups)
{
    for (const TrackGroup &group : groups) {
        ZARN_ASSERT_IN("zarn::ScoreModel::setTrackGroups", group.first <= group.last);
        ZARN_ASSERT_IN("zarn::ScoreModel::setTrackGroups", group.symbol <= GroupSymbol::Line);
    }
    _trackGroups = std::move(groups);
}

bool operator==(const ScoreModel &left, const ScoreModel &right)
{
    return left._properties == right._properties
        && left._headersAndFooters == right._headersAndFooters
        && left._pageSetup == right._pageSetup && left._systemsLayout == right._systemsLayout
        && left._concertTone == right._concertTone
        && left._defaultBarsPerSystem == right._defaultBarsPerSystem
        && left._ignoreCapo == right._ignoreCapo && left._printable == right._printable
        && left._protected == right._protected && left._views == right._views
        && left._trackGroups == right._trackGroups
        && std::equal(left._audioTracks.begin(), left._audioTracks.end(),
                      right._audioTracks.begin(), right._audioTracks.end(),
                      [](const auto &a, const auto &b) { return *a == *b; })
        && *left._masterTrack == *right._masterTrack && left._tracks == right._tracks;
}

} // namespace zarn
