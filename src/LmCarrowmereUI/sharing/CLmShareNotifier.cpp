#include "CLmShareNotifier.h"

CLmShareNotifier* CLmShareNotifier::Instance()
{
    static CLmShareNotifier notifier;
    return &notifier;
}
