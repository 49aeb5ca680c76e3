#pragma once

// A geographic position in decimal degrees (WGS 84).
struct PointLatLng
{
    PointLatLng() = default;
    PointLatLng(double latitude, double longitude)
        : lat(latitude)
        , lng(longitude)
    {
    }

    double lat = 0.0;
    double lng = 0.0;
};
