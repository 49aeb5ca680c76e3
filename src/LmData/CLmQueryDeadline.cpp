#include "CLmQueryDeadline.h"

#include <sqlite3.h>

namespace {

// Virtual-machine steps between two looks at the clock: a few microseconds.
constexpr int kStepsPerCheck = 4000;

}  // namespace

CLmQueryDeadline::CLmQueryDeadline(sqlite3* handle, int budgetMs)
    : m_pHandle(handle)
    , m_nBudgetMs(budgetMs)
{
    m_timer.start();
    sqlite3_progress_handler(m_pHandle, kStepsPerCheck, &CLmQueryDeadline::OnProgress, this);
}

CLmQueryDeadline::~CLmQueryDeadline()
{
    sqlite3_progress_handler(m_pHandle, 0, nullptr, nullptr);
}

void CLmQueryDeadline::Arm()
{
    m_bExpired = false;
    m_timer.restart();
}

bool CLmQueryDeadline::Expired() const
{
    return m_bExpired;
}

int CLmQueryDeadline::OnProgress(void* self)
{
    auto* deadline = static_cast<CLmQueryDeadline*>(self);
    if (deadline->m_timer.hasExpired(deadline->m_nBudgetMs))
        deadline->m_bExpired = true;
    return deadline->m_bExpired ? 1 : 0;
}
