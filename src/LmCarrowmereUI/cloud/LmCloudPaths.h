#pragma once

// Paths of the cloud service, appended to GetServerIP() (the news page to
// GetPageIP()). Paths with a query take their value appended as it stands.
namespace LmCloudPath {

inline constexpr char Ping[] = "/ping";

inline constexpr char UserLogin[] = "/user/login";
inline constexpr char AdminLogin[] = "/admin/login";
inline constexpr char UserProfile[] = "/user/profile";
inline constexpr char UserRegister[] = "/user/register";
inline constexpr char UserSendValidate[] = "/user/sendvalidate";
inline constexpr char UserResetPasswordSendSms[] = "/user/resetpasswordsendsms";
inline constexpr char UserResetPassword[] = "/user/resetpassword";
inline constexpr char UserChangePhone[] = "/user/changephone";
inline constexpr char UserEditProfile[] = "/user/editprofile";
inline constexpr char UserLogout[] = "/user/logout";
inline constexpr char PushMessageList[] = "/push/messageList";

inline constexpr char ProjectList[] = "/project/list";
inline constexpr char ProjectUpload[] = "/project/upload";
inline constexpr char ProjectDownloadFile[] = "/project/downloadfile";
inline constexpr char ProjectRemove[] = "/project/remove";
inline constexpr char ProjectRemoveMulti[] = "/project/removemulti";

inline constexpr char FlightListByTask[] = "/flight/listbytask";
inline constexpr char FlightGetFlog[] = "/flight/getflog";
inline constexpr char FlightDownloadPos[] = "/flight/downloadPos?flight_mission_id=";

inline constexpr char ShareShare[] = "/share/share";
inline constexpr char ShareList[] = "/share/list";
inline constexpr char ShareReply[] = "/share/reply";
inline constexpr char ShareDelete[] = "/share/delete";
inline constexpr char ShareShareAgain[] = "/share/shareagain";
inline constexpr char ShareAccept[] = "/share/accept";
inline constexpr char TaskReply[] = "/task/reply";
inline constexpr char TaskAssignList[] = "/task/assignList";
inline constexpr char TaskAcceptAssign[] = "/task/acceptAssign";
inline constexpr char TaskDelete[] = "/task/delete";

inline constexpr char FileAuthorization[] = "/file/authorization";
inline constexpr char AppBugReport[] = "/app/bugreport";

inline constexpr char LicenceIssue[] = "/licence/issue";

inline constexpr char NoFlyZoneCheckUpdate[] = "/noflyzone/checkupdate";
inline constexpr char NoFlyZoneDownload[] = "/noflyzone/download";
inline constexpr char NoFlyZoneLiftAccept[] = "/noflyzone/liftAccept";

inline constexpr char MonitorPage[] = "/monitor/monitor4new?token=";
inline constexpr char NewsPage[] = "8083/news";

}  // namespace LmCloudPath
