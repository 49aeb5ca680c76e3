#include "CLmProjMgrWgt.h"

#include "ui_CLmProjMgrWgt.h"

CLmProjMgrWgt::CLmProjMgrWgt(QWidget* parent)
    : QWidget(parent)
    , m_pUi(std::make_unique<Ui::CLmProjMgrWgt>())
{
    m_pUi->setupUi(this);
    connect(m_pUi->m_pBtnBackHome, &QPushButton::clicked, this, &CLmProjMgrWgt::BackToHome);
}

CLmProjMgrWgt::~CLmProjMgrWgt() = default;

void CLmProjMgrWgt::Reset()
{
    m_pUi->m_pTreeProject->clear();
}
