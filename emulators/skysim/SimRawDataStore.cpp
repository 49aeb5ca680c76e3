#include "SimRawDataStore.h"

#include "SimLogStore.h"

namespace {

// Recording sessions start an hour apart.
constexpr uint32_t FOLDER_SPACING_S = 3600;

} // namespace

SimRawDataStore::SimRawDataStore(int folderCount, int entriesPerFolder, uint32_t entrySize, uint32_t firstTimeUtc)
    : m_entriesPerFolder(entriesPerFolder)
    , m_entrySize(entrySize)
{
    for (int id = 1; id <= folderCount; ++id) {
        const uint32_t time = firstTimeUtc + static_cast<uint32_t>(id - 1) * FOLDER_SPACING_S;
        m_folders.append({static_cast<uint16_t>(id), time, QByteArray("SESSION_") + QByteArray::number(id)});
    }
}

const SimRawDataStore::SFolder* SimRawDataStore::find(uint16_t folderId) const
{
    for (const SFolder& folder : m_folders) {
        if (folder.id == folderId)
            return &folder;
    }
    return nullptr;
}

// The log hash over a key mixing folder and entry.
uint8_t SimRawDataStore::contentByte(uint16_t folderId, uint16_t entryId, uint32_t offset)
{
    return SimLogStore::contentByte(static_cast<uint16_t>(0x8000u ^ (folderId * 131u) ^ entryId), offset);
}

void SimRawDataStore::fill(uint16_t folderId, uint16_t entryId, uint32_t offset, uint32_t count, uint8_t* out)
{
    for (uint32_t i = 0; i < count; ++i)
        out[i] = contentByte(folderId, entryId, offset + i);
}
