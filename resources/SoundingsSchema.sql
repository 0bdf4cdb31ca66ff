-- The soundings that have been processed, and their levels for the synoptic map.
pragma user_version = 2;

create table soundings (
    sounding_id  integer primary key,
    filename     text not null,      -- canonical path
    launchtime   timestamp not null, -- YYYY-MM-DDTHH:MM:SS, UTC
    platform     text,
    project      text,
    sondeId      text,
    comments     text,
    BSN          text,
    callSign     text,
    soundingType text,
    lat_deg      float,
    lon_deg      float
);

create table levels (
    sounding_id integer references soundings(sounding_id) on delete cascade on update cascade,
    type        integer,
    pres_mb     float,
    tdry_degc   float,
    dp_degc     float,
    wspd_mps    float,
    wdir_degmet float,
    alt_msl     float
);

create index levelsindex on levels(sounding_id);
create index soundingsindex on soundings(filename);
