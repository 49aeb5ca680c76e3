#pragma once

#include <QObject>

class CLmLinkProvide;

// Handle of one connected aircraft: which link it talks on and who it is.
// Owned by the link library; pages only hold it while it is connected.
class CLmUasProvide : public QObject
{
    Q_OBJECT
public:
    CLmUasProvide(CLmLinkProvide* pLink, int uasId, int componentId, QObject* parent = nullptr);

    CLmLinkProvide* GetLink() const;
    int GetUasId() const;
    int GetComponentId() const;

private:
    CLmLinkProvide* m_pLink;
    int m_iUasId;
    int m_iComponentId;
};
