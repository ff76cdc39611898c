// Help map of Tide Clock (made by MAKEHELP.BAT)

#define HID_FILE_OPEN            0x18100
#define HID_FILE_SAVE            0x18103
#define HID_FILE_PRINT           0x18107
#define HID_APP_EXIT             0x1E141
#define HID_VIEW_GRAPH           0x18200
#define HID_VIEW_TABLE           0x18201
#define HID_APP_ABOUT            0x1E140
#define HID_HELP_INDEX           0x1E142
#define HID_CONTEXT_HELP         0x1E143
#define IDH_STATION_DIALOG       2000
#define IDH_STATION_LIST         1001
#define IDH_UNITS_METRIC         1002
#define IDH_ALARM_MINUTES        1003
#define IDH_TIMEZONE_AUTO        1004
#define GL_CONSTITUENT           1100
#define IDH_OLD_DIALOG           1200
#define IDH_RESERVED             0
