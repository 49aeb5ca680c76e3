#pragma once

#include <QElapsedTimer>

struct sqlite3;

// Bounds the time of every statement on one SQLite connection: SQLite calls
// back every few thousand virtual-machine steps, and the statement is
// interrupted once the budget since the last Arm() is spent. A file from
// outside can hold views or expressions that never finish; this makes them
// fail instead of hanging the thread that reads them.
class CLmQueryDeadline
{
public:
    CLmQueryDeadline(sqlite3* handle, int budgetMs);
    ~CLmQueryDeadline();
    CLmQueryDeadline(const CLmQueryDeadline&) = delete;
    CLmQueryDeadline& operator=(const CLmQueryDeadline&) = delete;

    // Starts the budget of the next statement (and of reading its rows).
    void Arm();
    bool Expired() const;

private:
    static int OnProgress(void* self);

    sqlite3* m_pHandle;
    int m_nBudgetMs;
    QElapsedTimer m_timer;
    bool m_bExpired = false;
};
