#pragma once

#include "CLmMessageBox.h"

// Asks what to do with a shared project whose name the user already has:
// exec() returns Replace, SaveAs, or 0 when the box is closed.
class CLmProjectExistsDialog : public CLmMessageBox
{
    Q_OBJECT
public:
    enum EAnswer { Replace = 1, SaveAs = 2 };

    explicit CLmProjectExistsDialog(QWidget* parent = nullptr);
};
