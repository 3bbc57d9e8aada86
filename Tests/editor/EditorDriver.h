// SPDX-License-Identifier: MIT
#pragma once

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "app/ScoreView.h"
#include "dialogs/Questions.h"
#include "document/Document.h"

#include <QStringList>
#include <QTest>

#include <deque>
#include <functional>
#include <string>

namespace test {

/// Answers in a user's place, and remembers what it was told.
class GivenAnswers : public zarn::editor::Questions {
public:
    Answer answer = Answer::Discard;
    bool yes = true;
    QString openPath;
    QString savePath;
    QStringList told;
    QStringList details;
    std::deque<QString> texts;
    std::deque<int> numbers;
    int choice = 0;
    /// What is filled into forms that have such a field; all else stays as proposed.
    QVariantMap fields;
    QStringList forms;
    /// Answers whatever is asked, when it is there.
    std::function<QVariant(const zarn::editor::FormField &)> fill;

    Answer askToSave(QWidget *, const QString &name) override
    {
        told << QStringLiteral("save? ") + name;
        return answer;
    }
    bool askYesOrNo(QWidget *, const QString &question) override
    {
        told << question;
        return yes;
    }
    QString fileToOpen(QWidget *, const QString &) override { return openPath; }
    QString fileToSave(QWidget *, const QString &, const QStringList &) override
    {
        return savePath;
    }
    void tell(QWidget *, const QString &message, const QStringList &more) override
    {
        told << message;
        details << more;
    }
    std::optional<QVariantMap> askForm(QWidget *, const zarn::editor::Form &form) override
    {
        QVariantMap values = form.values();
        for (const zarn::editor::FormField &field : form.fields())
            values[field.id] = fields.value(field.id, fill ? fill(field) : field.value);
        forms << form.title();
        return values;
    }
    std::optional<QString> askText(QWidget *, const QString &label, const QString &present) override
    {
        zarn::editor::Form form(label);
        form.text("text", label, present);
        return fill ? fill(form.fields()[0]).toString() : next(texts, present);
    }
    std::optional<int> askNumber(QWidget *, const QString &label, int present, int least,
                                 int most) override
    {
        zarn::editor::Form form(label);
        form.number("number", label, present, least, most);
        return fill ? fill(form.fields()[0]).toInt() : next(numbers, present);
    }
    std::optional<int> askChoice(QWidget *, const QString &label, const QStringList &choices,
                                 int present) override
    {
        zarn::editor::Form form(label);
        form.choice("choice", label, choices, present);
        return fill ? fill(form.fields()[0]).toInt() : choice;
    }

private:
    template <class Value>
    static Value next(std::deque<Value> &given, const Value &otherwise)
    {
        if (given.empty())
            return otherwise;
        Value value = given.front();
        given.pop_front();
        return value;
    }
};

/// The editor with one window, driven by keys and the mouse as a user does.
class EditorDriver {
public:
    /// With a new score, or with a file, which must be readable.
    EditorDriver();
    explicit EditorDriver(const QString &path);
    ~EditorDriver();

    zarn::editor::Editor &editor() { return *_editor; }
    zarn::editor::MainWindow &window() { return *_window; }
    zarn::editor::ScoreView &view() { return _window->view(); }
    zarn::editor::Document &document() { return _window->document(); }
    const zarn::ScoreModel &model() { return document().model(); }
    GivenAnswers &answers() { return *_answers; }

    /// Keys in the words of shortcuts: "1 2 Right Ctrl+Z".
    void type(const QString &keys);
    /// What an action of the menus does; false for one that is not enabled.
    bool trigger(const QString &id);
    /// Lets the event loop do what waits, and layouts come to their end.
    void settle();

    /// The score as a text, byte for byte.
    std::string text();
    /// Frets and rhythms of bars of the first track: "5.3q 4.0e" for string from the top, fret and
    /// length; beats are parted by blanks, notes of a beat by +, bars by |.
    std::string bars(unsigned first, unsigned last, unsigned track = 0, unsigned voice = 0);

    /// Where a place is on the staff that the cursor uses, in the view.
    QPoint pointOf(const zarn::ScoreModelIndex &place);

private:
    void begin();

    GivenAnswers *_answers;
    std::unique_ptr<zarn::editor::Editor> _editor;
    zarn::editor::MainWindow *_window = nullptr;
};

} // namespace test
