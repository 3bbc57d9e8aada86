// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

namespace zarn::editor {

/// What a neck is like that a `NeckView` draws.
struct Neck {
    QStringList openStrings; ///< names, the lowest string first
    int lastFret = 24;       ///< frets count from nut or capo, as notes have them
    /// By string: its first fret that can be stopped; 1 but for short drone strings.
    std::vector<int> firstFrets;
    int capo = 0; ///< drawn as such at the nut; 0 for none

    friend bool operator==(const Neck &left, const Neck &right)
    {
        return left.openStrings == right.openStrings && left.lastFret == right.lastFret
            && left.firstFrets == right.firstFrets && left.capo == right.capo;
    }
};

/// Something at a place of the neck.
struct NeckMark {
    enum class Kind {
        Note,      ///< of the beat
        Tonic,     ///< of a scale
        ScaleTone, ///< another tone of it
    };
    int string;
    int fret;
    Kind kind;
    QString text;
};

/// A neck from the nut on the left, the lowest string at the bottom, with marks on it. Places are
/// chosen with the mouse, or with the arrow keys and Return.
class NeckView : public QWidget {
    Q_OBJECT
public:
    explicit NeckView(QWidget *parent = nullptr);
    ~NeckView() override;

    void setNeck(const Neck &neck);
    /// Later ones are drawn over earlier ones.
    void setMarks(std::vector<NeckMark> marks);
    /// The string that keys act on, 0 the lowest; what is no string is ignored.
    void setCurrentString(int string);

    int currentString() const noexcept { return _string; }
    int currentFret() const noexcept { return _fret; }

    /// Where a place is drawn.
    QRectF cellOf(int string, int fret) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// By a click or by Return.
    void chosen(int string, int fret);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int stringCount() const { return _neck.openStrings.size(); }
    bool has(int string, int fret) const;
    void moveTo(int string, int fret);
    void describePlace();
    double fretX(int fret) const;
    double stringY(int string) const;
    void drawBoard(QPainter &painter) const;
    void drawMarks(QPainter &painter) const;

    Neck _neck;
    std::vector<NeckMark> _marks;
    int _string = 0;
    int _fret = 0;
};

} // namespace zarn::editor
