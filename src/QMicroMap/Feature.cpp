#include "Feature.h"

const std::vector<Feature>& mapFeatures() {
    static const std::vector<Feature> features{
        {Feature::Polygon, "admin_0_countries", "Geometry", "black", "beige", ""},
        {Feature::Line, "admin_1_states_provinces_lines_shp", "Geometry", "grey", "", ""},
        {Feature::Polygon, "lakes", "Geometry", "blue", "lightblue", ""},
        {Feature::Line, "rivers_lake_centerlines", "Geometry", "blue", "", ""},
        {Feature::Point, "geography_regions_points", "Geometry", "brown", "yellow", "Name"},
        {Feature::Point, "geography_regions_elevation_points", "Geometry", "green", "lightgreen", "Name"},
        {Feature::Point, "populated_places", "Geometry", "black", "", "Name"},
        {Feature::Line, "geographic_lines", "Geometry", "yellow", "", ""},
        {Feature::Line, "coastline", "Geometry", "red", "", ""},
    };
    return features;
}
