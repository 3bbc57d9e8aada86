// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <QString>

#include <cstdint>
#include <map>
#include <memory>

namespace zarn {

class ScoreModel;
enum class HeaderAndFooter : std::uint8_t;

/// What can be done to the texts and settings of a score as a whole. Each answers whether it was
/// done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreDocumentOperations {
public:
    bool changeProperty(ScoreProperty property, const QString &text);
    bool changeProperties(const std::map<ScoreProperty, QString> &texts);

    /// The text may hold words such as "%Title%"; see `ScoreModel::formatHeaderAndFooter`.
    bool changeHeaderAndFooter(HeaderAndFooter part, const QString &text);

    /// Frequency of the a' in hertz, 220 to 880.
    bool setConcertTone(double hertz);

    /// Puts another document into the score, which can be undone; takes the model over.
    bool replaceScore(std::shared_ptr<ScoreModel> model);

protected:
    ScoreDocumentOperations() = default;
    ~ScoreDocumentOperations() = default;
};

} // namespace zarn
