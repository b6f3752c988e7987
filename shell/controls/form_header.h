#pragma once
// The ink band of the main window: logo, name, tabs, book label, display modes, small buttons.

#include "shell/controls/form_parts.h"

#include <QWidget>

#include <array>
#include <vector>

class KestroHeader : public QWidget {
 public:
    explicit KestroHeader(QWidget* parent);

    static constexpr int kHeight = 52;

    void SetCaption(const QString& name, const QString& version);
    HeaderTab* AddTab(const QString& caption);
    void SelectTab(int index);
    void SetMode(int mode);
    void SetBookLabel(const QString& text);
    /// Of the window's upper corners.
    void SetRadius(double radius) { radius_ = radius; }

    std::vector<HeaderTab*> tabs;
    HeaderLogo* logo;
    HeaderLabel* label;
    std::array<HeaderIcon*, 3> modes{};
    HeaderIcon* web;
    HeaderIcon* calculator;
    HeaderIcon* menu;
    std::array<HeaderGlyph*, 3> glyphs{};  ///< minimise, maximise, close

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void Arrange();
    int ArrangeTabs();
    int ArrangeRight();
    bool ShowsCaption() const;

    QString name_;
    QString version_;
    double radius_ = 0;
    int divider_ = 0;
};
