#include "DemoFlight.h"

#include "LmProjectConstants.h"

#include <QPointF>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kCruiseSpeed = 15.0;      // m/s
constexpr double kSurveyHeight = 120.0;    // m above the take-off point
constexpr double kClimbRate = 5.0;         // m/s, the same going down
constexpr int kLogIntervalSeconds = 5;
constexpr double kPhotoSpacing = 140.0;    // m along a line
constexpr int kLines = 4;
constexpr double kLineSpacing = 200.0;     // m
constexpr double kLineHalfLength = 350.0;  // m
constexpr double kMetresPerDegree = 111320.0;
constexpr double kPi = 3.14159265358979323846;

QString TimeText(const QDateTime& time)
{
    return time.toString(QLatin1String(DateTimeSFormat));
}

double Rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

// The flight path in metres east (x) and north (y) of the home point: out to
// the first line, the lines joined by turns, and back home. Segment 2k+1 is
// line k.
class Route
{
public:
    explicit Route(int variant)
    {
        const double shift = 40.0 * (variant % 3);
        m_points.append(QPointF(0, 0));
        for (int line = 0; line < kLines; ++line) {
            const double x = -kLineSpacing * (kLines - 1) / 2 + kLineSpacing * line + shift;
            const double from = line % 2 == 0 ? -kLineHalfLength : kLineHalfLength;
            m_points.append(QPointF(x, from));
            m_points.append(QPointF(x, -from));
        }
        m_points.append(QPointF(0, 0));
    }

    double Length() const { return DistanceTo(m_points.size() - 1); }

    // Distance along the route to the start of a point.
    double DistanceTo(int pointIndex) const
    {
        double length = 0;
        for (int i = 1; i <= pointIndex; ++i)
            length += SegmentLength(i - 1);
        return length;
    }

    QPointF At(double distance) const
    {
        for (int segment = 0; segment + 1 < m_points.size(); ++segment) {
            const double length = SegmentLength(segment);
            if (distance <= length) {
                const QPointF from = m_points.at(segment);
                return from + (m_points.at(segment + 1) - from) * (length > 0 ? distance / length : 0);
            }
            distance -= length;
        }
        return m_points.last();
    }

private:
    double SegmentLength(int segment) const
    {
        const QPointF step = m_points.at(segment + 1) - m_points.at(segment);
        return std::hypot(step.x(), step.y());
    }

    QVector<QPointF> m_points;
};

// Lines are flown northwards and southwards in turn.
double LineHeading(int line)
{
    return line % 2 == 0 ? 0.0 : 180.0;
}

struct Geo
{
    double lat;
    double lng;
};

Geo ToGeo(const DemoFlight::Plan& plan, const QPointF& metres)
{
    const double lngScale = kMetresPerDegree * std::cos(plan.homeLat * kPi / 180.0);
    return {Rounded(plan.homeLat + metres.y() / kMetresPerDegree, 7), Rounded(plan.homeLng + metres.x() / lngScale, 7)};
}

double Altitude(double seconds, double duration)
{
    return std::min({kSurveyHeight, kClimbRate * seconds, kClimbRate * (duration - seconds)});
}

QJsonObject MissionRow(const DemoFlight::Plan& plan)
{
    return QJsonObject{{"id", plan.missionId},
                       {"flight_task_id", plan.taskId},
                       {"project_id", plan.projectId},
                       {"mission_name", plan.missionName},
                       {"created_at", TimeText(plan.start)}};
}

QJsonArray LogRows(const DemoFlight::Plan& plan, const Route& route)
{
    const double duration = route.Length() / kCruiseSpeed;
    QJsonArray rows;
    for (int second = 0;; second += kLogIntervalSeconds) {
        const double t = std::min<double>(second, duration);
        const bool onGround = t == 0 || t == duration;
        const Geo at = ToGeo(plan, route.At(t * kCruiseSpeed));
        rows.append(QJsonObject{{"id", plan.firstLogId + rows.size()},
                                {"flight_mission_id", plan.missionId},
                                {"log_time", TimeText(plan.start.addSecs(std::lround(t)))},
                                {"lat", at.lat},
                                {"lng", at.lng},
                                {"alt", Rounded(Altitude(t, duration), 1)},
                                {"speed", onGround ? 0.0 : kCruiseSpeed},
                                {"battery", 100 - static_cast<int>(std::lround(35 * t / duration))}});
        if (t >= duration)
            return rows;
    }
}

QJsonArray PositionRows(const DemoFlight::Plan& plan, const Route& route)
{
    const double duration = route.Length() / kCruiseSpeed;
    const int photosPerLine = static_cast<int>(2 * kLineHalfLength / kPhotoSpacing) + 1;
    QJsonArray rows;
    for (int line = 0; line < kLines; ++line) {
        const double lineStart = route.DistanceTo(2 * line + 1);
        for (int photo = 0; photo < photosPerLine; ++photo) {
            const int index = rows.size() + 1;
            const double distance = lineStart + photo * kPhotoSpacing;
            const double t = distance / kCruiseSpeed;
            const Geo at = ToGeo(plan, route.At(distance));
            // Small, steady attitude changes as a survey aircraft shows them in light wind.
            rows.append(QJsonObject{{"id", plan.firstPositionId + rows.size()},
                                    {"flight_mission_id", plan.missionId},
                                    {"photo_index", index},
                                    {"shot_time", TimeText(plan.start.addSecs(std::lround(t)))},
                                    {"lat", at.lat},
                                    {"lng", at.lng},
                                    {"alt", Rounded(Altitude(t, duration) + 0.8 * std::sin(0.7 * index), 1)},
                                    {"roll", Rounded(1.5 * std::sin(index), 2)},
                                    {"pitch", Rounded(2.0 + 0.5 * std::cos(index), 2)},
                                    {"yaw", LineHeading(line)}});
        }
    }
    return rows;
}

}  // namespace

FlightStore::MissionUpload DemoFlight::Build(const Plan& plan)
{
    const Route route(plan.variant);
    FlightStore::MissionUpload upload;
    upload.projectId = plan.projectId;
    upload.taskId = plan.taskId;
    upload.missionId = plan.missionId;
    upload.mission = MissionRow(plan);
    upload.rows = LogRows(plan, route);
    upload.positions = PositionRows(plan, route);
    return upload;
}
