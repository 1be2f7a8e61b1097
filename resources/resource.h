#pragma once

// Ids for the resource compiler, which knows no constants but these. The program checks them against its own.
#define IDS_TITLE 103
#define IDS_CLASS 109
#define IDI_LARGE 107
#define IDI_SMALL 108
#define IDR_MENU 109
#define IDR_ACCELERATORS 109
#define IDD_ABOUT 103
#define IDM_ABOUT 104
#define IDM_EXIT 105

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
