#pragma once

// Item-data roles of the share manager's rows, on the row's first column.
namespace LmShareRole {

// Share id (qint64); the key of the delegate's state map.
constexpr int ShareId = 2256;
// The messages of both sides (CLmShareManagerController::MessageList).
constexpr int Messages = 3259;
// Row kind: "RecivedItem", "RecivedTaskItem" or "SharedItem".
constexpr int Kind = 3260;
// Share state: 0 waiting, 1 cancelled, 2 accepted, 3 rejected.
constexpr int State = 3261;
// 1 when the receiver already has a project of the shared name.
constexpr int SaveAs = 3262;
// User id of the sender.
constexpr int SenderId = 3263;
// Cloud id of the shared project.
constexpr int ProjectId = 3264;
// Id of the assigned flight task of a task row.
constexpr int TaskId = 3265;

}  // namespace LmShareRole
