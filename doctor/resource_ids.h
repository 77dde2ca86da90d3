#ifndef QUOR_DOCTOR_RESOURCE_IDS_H
#define QUOR_DOCTOR_RESOURCE_IDS_H

// Used by C++ and the resource compiler.
#define IDI_TELEPHONE 1  // the lowest: Explorer shows it for the program
#define IDD_DOCTOR 100
#define IDC_FINDINGS 101
#define IDC_REPAIR 102
#define IDC_AGAIN 103
#define IDC_REPORT 104

#endif
