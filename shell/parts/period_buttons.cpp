#include "shell/parts/period_buttons.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_label.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "store/dates.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

std::optional<QDate> DateOf(const KestroButton* button) {
    return button->Date().isValid() ? std::optional(button->Date()) : std::nullopt;
}

}  // namespace

PeriodButtons::PeriodButtons(QWidget* parent)
    : QWidget(parent),
      btnDate0(new KestroButton(ButtonLook::date, kUnsetFirst, {}, this)),
      btnDate1(new KestroButton(ButtonLook::date, kUnsetSecond, {}, this)),
      KestroCalendar1(new KestroCalendar(this)) {
    btnDate0->setObjectName(u"btnDate0"_s);
    btnDate1->setObjectName(u"btnDate1"_s);
    btnDate0->onClick = [this] { OpenCalendar(btnDate0); };
    btnDate1->onClick = [this] { OpenCalendar(btnDate1); };
    Toolbar::GiveMenu(btnDate1, u"shortdate"_s);
    KestroCalendar1->onPick = [this](QDate day) {
        chosen_->SetDate(day);
        if (onPick) onPick();
    };
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(Skin::Space::kPartner / 2);
    row->addWidget(btnDate0);
    row->addWidget(new KestroLabel(u"–"_s, LabelKind::plain, this));
    row->addWidget(btnDate1);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PeriodButtons::SetTips(const QString& first, const QString& second) {
    btnDate0->setToolTip(first);
    btnDate1->setToolTip(second);
}

Period PeriodButtons::Value() const {
    return {DateOf(btnDate0), DateOf(btnDate1)};
}

void PeriodButtons::SetValue(const Period& period) {
    btnDate0->SetDate(period.first.value_or(QDate()));
    btnDate1->SetDate(period.second.value_or(QDate()));
}

void PeriodButtons::OpenCalendar(KestroButton* button) {
    chosen_ = button;
    KestroCalendar1->PopUp(button, DateOf(button).value_or(ParseDate(TodayText(u"-"_s)).value_or(QDate())));
}
