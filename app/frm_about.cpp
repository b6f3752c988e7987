#include "app/frm_about.h"

#include "shell/addresses.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_link.h"
#include "shell/controls/kestro_png_pic.h"
#include "store/state.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

void ShowAbout() {
    KestroDialog about(DialogKind::small, u"关于墨鹊理财"_s, QApplication::activeWindow());
    const PopupScope popup;
    auto* logo = new KestroPngPic(about.Body());
    logo->SetIcon(u"logo"_s);
    logo->setFixedSize(72, 72);
    auto* name = new KestroLabel(u"墨鹊理财专业版"_s, LabelKind::title, about.Body());
    auto* version = new KestroLabel(u"2016.2"_s, LabelKind::hint, about.Body());
    auto* lnkURL = new KestroLink(u"产品主页"_s, about.Body());
    auto* lnkCorp = new KestroLink(u"关于我们"_s, about.Body());
    lnkURL->onClick = [] { OpenAddress(kHomePage); };
    lnkCorp->onClick = [] { OpenAddress(kMakerPage); };
    auto* words = new QVBoxLayout;
    words->setSpacing(6);
    words->addWidget(name);
    words->addWidget(version);
    auto* links = new QHBoxLayout;
    links->addWidget(lnkURL);
    links->addSpacing(16);
    links->addWidget(lnkCorp);
    links->addStretch();
    words->addLayout(links);
    words->addStretch();
    auto* row = new QHBoxLayout(about.Body());
    row->setContentsMargins(24, 12, 24, 16);
    row->setSpacing(20);
    row->addWidget(logo, 0, Qt::AlignTop);
    row->addLayout(words, 1);
    auto* seal = new KestroPngPic(about.Body());
    seal->SetIcon(u"logo-mono"_s);
    seal->setFixedSize(32, 32);
    row->addWidget(seal, 0, Qt::AlignBottom);
    auto* close = new KestroButton(ButtonLook::primary, u"确定"_s, {}, about.Footer());
    close->onClick = [&about] { about.accept(); };
    auto* foot = new QHBoxLayout(about.Footer());
    foot->setContentsMargins(12, 0, 12, 0);
    foot->addStretch();
    foot->addWidget(close);
    about.SetNamedSize({392, 200});
    about.exec();
}
