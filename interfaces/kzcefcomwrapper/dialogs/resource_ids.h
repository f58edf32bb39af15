// Numbers of the dialogs' resources, also for the resource compiler. Hosts and their tests know
// them: none may change.
#pragma once

#define KZ_CERT_CHOOSER 3000
// The prompt has the number that resources give to controls which need none.
#define KZ_CERT_CHOOSER_PROMPT (-1)
#define KZ_CERT_CHOOSER_LIST 3000
#define KZ_CERT_CHOOSER_INFO 3001

#define KZ_COLUMN_SUBJECT 10
#define KZ_COLUMN_ISSUER 11
#define KZ_COLUMN_SERIAL_NUMBER 12
#define KZ_COLUMN_EXPIRATION_DATE 13
