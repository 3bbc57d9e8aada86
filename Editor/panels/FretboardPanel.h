// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

class QComboBox;

namespace zarn::editor {

class NeckView;
struct NeckMark;

/// The neck of the staff with the notes of the beat, and with a scale when one is chosen. A place
/// that is clicked becomes a note of the beat.
class FretboardPanel : public Panel {
    Q_OBJECT
public:
    explicit FretboardPanel(const ActionContext &context);
    ~FretboardPanel() override;

protected:
    void follow() override;

private:
    void write(int string, int fret);
    void addScale(std::vector<NeckMark> &marks) const;
    void addNotes(std::vector<NeckMark> &marks) const;

    NeckView *_neck;
    QComboBox *_tonic;
    QComboBox *_scale;
    int _cursorString = -1;
};

} // namespace zarn::editor
