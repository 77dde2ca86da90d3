; The set-up program's texts in three languages.

!macro TEXT NAME ENGLISH FRENCH SPANISH
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
  LangString ${NAME} ${LANG_FRENCH} "${FRENCH}"
  LangString ${NAME} ${LANG_SPANISH} "${SPANISH}"
!macroend

!insertmacro TEXT WelcomeText \
  "This installs the Telephone Plug-in, which joins Outlook to the telephone base at your USB port.$\r$\n$\r$\nStarted as it is, it installs for you alone. Started as an administrator it installs for everybody at this computer.$\r$\n$\r$\nOutlook may stay open; it uses the new version when it is started again." \
  "Ce programme installe le complément téléphonique, qui relie Outlook à la base téléphonique branchée sur le port USB.$\r$\n$\r$\nLancé tel quel, il l'installe pour vous seul. Lancé en tant qu'administrateur, il l'installe pour tous les utilisateurs de cet ordinateur.$\r$\n$\r$\nOutlook peut rester ouvert ; il utilisera la nouvelle version à son prochain démarrage." \
  "Este programa instala el complemento telefónico, que une Outlook con la base telefónica conectada al puerto USB.$\r$\n$\r$\nIniciado sin más, lo instala solo para usted. Iniciado como administrador, lo instala para todos los usuarios de este equipo.$\r$\n$\r$\nOutlook puede seguir abierto; usará la versión nueva la próxima vez que se inicie."

!insertmacro TEXT FinishText \
  "The Telephone Plug-in is installed. Start Outlook and plug in the base.$\r$\n$\r$\nIf the telephone does not appear, start $\"Telephone Plug-in Doctor$\" from the Start menu: it says why, and repairs most of it." \
  "Le complément téléphonique est installé. Démarrez Outlook et branchez la base.$\r$\n$\r$\nSi le téléphone n'apparaît pas, lancez « Telephone Plug-in Doctor » depuis le menu Démarrer : il dit pourquoi et répare la plupart des cas." \
  "El complemento telefónico está instalado. Inicie Outlook y conecte la base.$\r$\n$\r$\nSi el teléfono no aparece, abra «Telephone Plug-in Doctor» en el menú Inicio: dice por qué y repara la mayoría de los casos."

!insertmacro TEXT NeedsAdministrator \
  "Installing or removing for everybody needs an administrator." \
  "L'installation ou la désinstallation pour tous les utilisateurs demande un administrateur." \
  "Instalar o desinstalar para todos los usuarios requiere un administrador."

!insertmacro TEXT CannotReplace \
  "This file or folder cannot be written:" \
  "Ce fichier ou ce dossier ne peut pas être écrit :" \
  "No se puede escribir este archivo o carpeta:"

!insertmacro TEXT CannotRegister \
  "Windows could not register this file:" \
  "Windows n'a pas pu enregistrer ce fichier :" \
  "Windows no pudo registrar este archivo:"

!insertmacro TEXT LibraryMissing \
  "SiUSBXp.dll for the $MissingBits-bit Outlook is not there yet. It comes with the telephone base: put it beside this program and run it again, or install the base's own software." \
  "SiUSBXp.dll pour l'Outlook $MissingBits bits manque encore. Elle est fournie avec la base téléphonique : placez-la à côté de ce programme et relancez-le, ou installez le logiciel de la base." \
  "Falta SiUSBXp.dll para el Outlook de $MissingBits bits. Viene con la base telefónica: póngala junto a este programa y ejecútelo de nuevo, o instale el software de la base."

!insertmacro TEXT LibraryUnfit \
  "The SiUSBXp.dll found is not one that the plug-in can use, and was not taken over." \
  "La bibliothèque SiUSBXp.dll trouvée n'est pas utilisable par le complément et n'a pas été reprise." \
  "La biblioteca SiUSBXp.dll encontrada no sirve para el complemento y no se ha copiado."

!insertmacro TEXT OutlookRuns \
  "Outlook is running: it uses the new version when it is started again." \
  "Outlook est ouvert : il utilisera la nouvelle version à son prochain démarrage." \
  "Outlook está abierto: usará la versión nueva la próxima vez que se inicie."

!insertmacro TEXT OutlookRunsRemoved \
  "Outlook is running: it keeps the telephone until it is closed. Windows deletes the last file at its next start." \
  "Outlook est ouvert : il garde le téléphone jusqu'à sa fermeture. Le dernier fichier sera supprimé au prochain démarrage de Windows." \
  "Outlook está abierto: conserva el teléfono hasta que se cierre. El último archivo se eliminará la próxima vez que se inicie Windows."

!insertmacro TEXT RemoveSettings \
  "Remove your settings, speed dials, caller list and diagnostic logs as well?" \
  "Supprimer aussi vos paramètres, numéros abrégés, liste des appels et journaux de diagnostic ?" \
  "¿Eliminar también sus ajustes, marcación rápida, lista de llamadas y registros de diagnóstico?"
