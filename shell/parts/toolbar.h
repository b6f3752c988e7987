#pragma once
// A page's row of commands: tool buttons for acts, and a box at the right end. When the row is short of room
// the buttons lose their captions from the right, then the box its width.

#include "shell/actions.h"

#include <QWidget>

#include <functional>
#include <vector>

class KestroButton;
class QHBoxLayout;

class Toolbar : public QWidget {
 public:
    explicit Toolbar(QWidget* parent);

    /// A button with the words and the icon of the act's row. The first one is the page's main command.
    KestroButton* Add(Act act, const QString& name, std::function<void()> onClick, const QString& tip = {});
    /// A button that no row of the table names.
    KestroButton* Add(const QString& caption, const QString& icon, const QString& name,
                      std::function<void()> onClick, const QString& tip = {});
    /// Moves a button to the left end.
    void PutFirst(KestroButton* button);
    /// A line between what was added and what comes.
    void AddLine();
    /// The arrow of a button opens a menu below it.
    static void GiveMenu(KestroButton* button, const QString& menu);
    /// A box at the right end, between least and wanted pixels wide.
    void SetEnd(QWidget* box, int least, int wanted);
    /// To be called when buttons have come or gone.
    void Fit();

    /// With all captions.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    int Needed() const;
    void KeepOrder();

    QHBoxLayout* row_;
    std::vector<KestroButton*> buttons_;
    int lines_ = 0;
    QWidget* end_ = nullptr;
    int whole_ = 0;  ///< width of the buttons with their captions
    int wanted_ = 0;
};
