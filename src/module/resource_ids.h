// The registration scripts among the resources, of type "REGISTRY". For resource scripts as well as
// for C++.
#ifndef QUOR_MODULE_RESOURCE_IDS_H
#define QUOR_MODULE_RESOURCE_IDS_H

#define IDR_REGISTRATION_ADDIN 101
#define IDR_REGISTRATION_PROPERTY_PAGE 102

#endif
