#pragma once

#include <QByteArray>
#include <QVector>

#include <cstdint>

// The GNSS receiver's raw-data folders: ids 1..N, each with entries
// 0..E-1 of one size (entry 0 the position file, the others observation
// files). Bytes are a pure function of folder, entry and offset, so a
// downloaded copy can be checked byte for byte.
class SimRawDataStore
{
public:
    struct SFolder {
        uint16_t id;
        uint32_t timeUtc;
        QByteArray label;
    };

    SimRawDataStore(int folderCount, int entriesPerFolder, uint32_t entrySize, uint32_t firstTimeUtc);

    const QVector<SFolder>& folders() const { return m_folders; }
    // Null when there is no folder of that id.
    const SFolder* find(uint16_t folderId) const;
    int entriesPerFolder() const { return m_entriesPerFolder; }
    uint32_t entrySize() const { return m_entrySize; }
    uint32_t folderSize() const { return m_entrySize * static_cast<uint32_t>(m_entriesPerFolder); }
    // Entry entryId of a folder is stamped this long after the folder.
    static constexpr uint32_t ENTRY_SPACING_S = 60;

    static uint8_t contentByte(uint16_t folderId, uint16_t entryId, uint32_t offset);
    static void fill(uint16_t folderId, uint16_t entryId, uint32_t offset, uint32_t count, uint8_t* out);

private:
    QVector<SFolder> m_folders;
    int m_entriesPerFolder;
    uint32_t m_entrySize;
};
