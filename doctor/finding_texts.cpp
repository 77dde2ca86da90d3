#include "doctor/finding_texts.h"

#include <array>
#include <span>

namespace quor::doctor {
namespace {

constexpr size_t kLanguages = 3;
constexpr size_t kKinds = static_cast<size_t>(FindingKind::Count);

struct Text {
  const char* what;
  const char* cure;
};

struct Entry {
  const char* name;
  std::array<Text, kLanguages> texts;
};

// In the order of FindingKind. {0}, {1} stand for the finding's arguments.
constexpr std::array<Entry, kKinds> kEntries = {{
    {"no-outlook",
     {{{"There is no classic Outlook on this computer.",
        "Install Outlook 2002 or later, or Microsoft 365 with the classic Outlook."},
       {"Il n'y a pas d'Outlook classique sur cet ordinateur.",
        "Installez Outlook 2002 ou ultérieur, ou Microsoft 365 avec l'Outlook classique."},
       {"En este equipo no hay ningún Outlook clásico.",
        "Instale Outlook 2002 o posterior, o Microsoft 365 con el Outlook clásico."}}}},
    {"new-outlook",
     {{{"You use the new Outlook, which loads no add-ins of this kind at all.",
        "Switch \"New Outlook\" off at the top right of its window; the classic Outlook then "
        "starts."},
       {"Vous utilisez le nouvel Outlook, qui ne charge aucun complément de ce type.",
        "Désactivez « Nouvel Outlook » en haut à droite de sa fenêtre ; l'Outlook classique "
        "démarre."},
       {"Usa el nuevo Outlook, que no carga ningún complemento de este tipo.",
        "Desactive «Nuevo Outlook» arriba a la derecha de su ventana; se abrirá el Outlook "
        "clásico."}}}},
    {"store-outlook",
     {{{"This Outlook comes from the Microsoft Store; such an Outlook loads no add-ins.",
        "Remove it, and install Microsoft 365 from office.com."},
       {"Cet Outlook provient du Microsoft Store ; il ne charge aucun complément.",
        "Supprimez-le et installez Microsoft 365 depuis office.com."},
       {"Este Outlook procede de Microsoft Store; no carga complementos.",
        "Elimínelo e instale Microsoft 365 desde office.com."}}}},
    {"not-registered",
     {{{"The plug-in is not installed for the {0}-bit Outlook.", "Run the set-up program."},
       {"Le complément n'est pas installé pour l'Outlook {0} bits.",
        "Lancez le programme d'installation."},
       {"El complemento no está instalado para el Outlook de {0} bits.",
        "Ejecute el programa de instalación."}}}},
    {"class-missing",
     {{{"Outlook knows the plug-in, but Windows has no {0}-bit version of it registered.",
        "Run the set-up program again: it brings both versions."},
       {"Outlook connaît le complément, mais Windows n'en a aucune version {0} bits enregistrée.",
        "Relancez le programme d'installation : il apporte les deux versions."},
       {"Outlook conoce el complemento, pero Windows no tiene registrada una versión de {0} bits.",
        "Ejecute de nuevo el programa de instalación: trae las dos versiones."}}}},
    {"key-missing",
     {{{"Windows knows the {0}-bit plug-in, but Outlook was not told to load it.",
        "Run the set-up program again."},
       {"Windows connaît le complément {0} bits, mais Outlook n'a pas reçu l'ordre de le charger.",
        "Relancez le programme d'installation."},
       {"Windows conoce el complemento de {0} bits, pero Outlook no tiene la orden de cargarlo.",
        "Ejecute de nuevo el programa de instalación."}}}},
    {"file-missing",
     {{{"The {0}-bit plug-in is registered, but its file is gone: {1}",
        "Run the set-up program again."},
       {"Le complément {0} bits est enregistré, mais son fichier a disparu : {1}",
        "Relancez le programme d'installation."},
       {"El complemento de {0} bits está registrado, pero falta su archivo: {1}",
        "Ejecute de nuevo el programa de instalación."}}}},
    {"file-of-other-bitness",
     {{{"For the {0}-bit Outlook a file of the other kind is registered: {1}",
        "Run the set-up program again."},
       {"Pour l'Outlook {0} bits, un fichier de l'autre type est enregistré : {1}",
        "Relancez le programme d'installation."},
       {"Para el Outlook de {0} bits está registrado un archivo del otro tipo: {1}",
        "Ejecute de nuevo el programa de instalación."}}}},
    {"versions-differ",
     {{{"Two versions of the plug-in are installed: {0} and {1}.",
        "Remove both in Windows' list of apps, then run the newest set-up program."},
       {"Deux versions du complément sont installées : {0} et {1}.",
        "Supprimez les deux dans la liste des applications de Windows, puis lancez le programme "
        "d'installation le plus récent."},
       {"Hay dos versiones del complemento instaladas: {0} y {1}.",
        "Quite las dos en la lista de aplicaciones de Windows y ejecute el programa de instalación "
        "más reciente."}}}},
    {"leftover",
     {{{"A registration of the {0}-bit plug-in is left over; its file is gone or of the other "
        "kind: "
        "{1}",
        "Nothing needs to be done; the set-up program, started as an administrator, replaces it."},
       {"Il reste un enregistrement du complément {0} bits, dont le fichier a disparu ou est de "
        "l'autre type : {1}",
        "Il n'y a rien à faire ; le programme d'installation, lancé en tant qu'administrateur, le "
        "remplace."},
       {"Queda un registro del complemento de {0} bits, cuyo archivo falta o es del otro tipo: {1}",
        "No hay que hacer nada; el programa de instalación, ejecutado como administrador, lo "
        "sustituye."}}}},
    {"elevated-outlook",
     {{{"Outlook runs as an administrator; it then ignores what is installed for you alone.",
        "Start Outlook normally, or run the set-up program as an administrator."},
       {"Outlook est lancé en tant qu'administrateur ; il ignore alors ce qui est installé pour "
        "vous "
        "seul.",
        "Démarrez Outlook normalement, ou lancez le programme d'installation en tant "
        "qu'administrateur."},
       {"Outlook se ejecuta como administrador; así no ve lo que está instalado solo para usted.",
        "Inicie Outlook de forma normal o ejecute el programa de instalación como "
        "administrador."}}}},
    {"switched-off",
     {{{"The plug-in is switched off in Outlook (LoadBehavior {0}).",
        "Repair it here, or tick \"Telephone Plug-in\" in Outlook's list of COM add-ins."},
       {"Le complément est désactivé dans Outlook (LoadBehavior {0}).",
        "Réparez ici, ou cochez « Telephone Plug-in » dans la liste des compléments COM "
        "d'Outlook."},
       {"El complemento está desactivado en Outlook (LoadBehavior {0}).",
        "Repárelo aquí o marque «Telephone Plug-in» en la lista de complementos COM de "
        "Outlook."}}}},
    {"not-at-start",
     {{{"Outlook does not load the plug-in when it starts (LoadBehavior {0}).", "Repair it here."},
       {"Outlook a l'ordre de ne pas charger le complément à son démarrage (LoadBehavior {0}).",
        "Réparez ici."},
       {"Outlook tiene la orden de no cargar el complemento al iniciarse (LoadBehavior {0}).",
        "Repárelo aquí."}}}},
    {"disabled",
     {{{"Outlook ({0}.0) has disabled the plug-in after a failure.",
        "Close Outlook and repair it here, or enable it under File, Options, Add-ins, Disabled "
        "Items."},
       {"Outlook ({0}.0) a désactivé le complément après une erreur.",
        "Fermez Outlook et réparez ici, ou réactivez-le sous Fichier, Options, Compléments, "
        "Éléments "
        "désactivés."},
       {"Outlook ({0}.0) ha deshabilitado el complemento tras un fallo.",
        "Cierre Outlook y repárelo aquí, o habilítelo en Archivo, Opciones, Complementos, "
        "Elementos "
        "deshabilitados."}}}},
    {"crashed",
     {{{"Outlook ({0}.0) holds the plug-in responsible for a crash.",
        "Close Outlook and repair it here; if it comes back, send a report."},
       {"Outlook ({0}.0) attribue un plantage au complément.",
        "Fermez Outlook et réparez ici ; si cela revient, envoyez un rapport."},
       {"Outlook ({0}.0) atribuye un cierre inesperado al complemento.",
        "Cierre Outlook y repárelo aquí; si vuelve a ocurrir, envíe un informe."}}}},
    {"kept",
     {{{"Outlook ({0}.0) keeps the plug-in enabled although it once complained (reason: {1}).",
        "Nothing needs to be done."},
       {"Outlook ({0}.0) garde le complément activé malgré un reproche passé (raison : {1}).",
        "Il n'y a rien à faire."},
       {"Outlook ({0}.0) mantiene habilitado el complemento pese a una queja anterior (motivo: "
        "{1}).",
        "No hay que hacer nada."}}}},
    {"policy-off",
     {{{"Your administrator has switched the plug-in off for Outlook {0}.0.",
        "Ask for QuorTelephoneToolbar.Addin to be allowed in the list of managed add-ins."},
       {"Votre administrateur a désactivé le complément pour Outlook {0}.0.",
        "Demandez que QuorTelephoneToolbar.Addin soit autorisé dans la liste des compléments "
        "gérés."},
       {"Su administrador ha desactivado el complemento para Outlook {0}.0.",
        "Pida que se permita QuorTelephoneToolbar.Addin en la lista de complementos "
        "administrados."}}}},
    {"policy-unlisted",
     {{{"Your administrator allows only listed add-ins in Outlook {0}.0, and this one is not "
        "listed.",
        "Ask for QuorTelephoneToolbar.Addin to be added to the list of managed add-ins."},
       {"Votre administrateur n'autorise que certains compléments dans Outlook {0}.0, et celui-ci "
        "n'en "
        "fait pas partie.",
        "Demandez l'ajout de QuorTelephoneToolbar.Addin à la liste des compléments gérés."},
       {"Su administrador solo permite ciertos complementos en Outlook {0}.0, y este no está entre "
        "ellos.",
        "Pida que se añada QuorTelephoneToolbar.Addin a la lista de complementos "
        "administrados."}}}},
    {"policy-signed-only",
     {{{"Outlook {0}.0 loads only add-ins that are signed by a trusted publisher.",
        "Ask your administrator to trust the publisher of the plug-in."},
       {"Outlook {0}.0 ne charge que les compléments signés par un éditeur approuvé.",
        "Demandez à votre administrateur d'approuver l'éditeur du complément."},
       {"Outlook {0}.0 solo carga complementos firmados por un editor de confianza.",
        "Pida a su administrador que confíe en el editor del complemento."}}}},
    {"policy-all-off",
     {{{"All add-ins are switched off for Outlook {0}.0.",
        "Ask your administrator, or look in Outlook's Trust Center under Add-ins."},
       {"Tous les compléments sont désactivés pour Outlook {0}.0.",
        "Voyez votre administrateur, ou le Centre de gestion de la confidentialité d'Outlook, "
        "Compléments."},
       {"Todos los complementos están desactivados para Outlook {0}.0.",
        "Hable con su administrador o mire en el Centro de confianza de Outlook, Complementos."}}}},
    {"library-missing",
     {{{"SiUSBXp.dll for the {0}-bit Outlook is missing; it comes with the telephone base.",
        "Put it beside the set-up program and run that again, or install the base's own software."},
       {"SiUSBXp.dll pour l'Outlook {0} bits manque ; elle est fournie avec la base téléphonique.",
        "Placez-la à côté du programme d'installation et relancez-le, ou installez le logiciel de "
        "la "
        "base."},
       {"Falta SiUSBXp.dll para el Outlook de {0} bits; viene con la base telefónica.",
        "Póngala junto al programa de instalación y ejecútelo de nuevo, o instale el software de "
        "la "
        "base."}}}},
    {"library-of-other-bitness",
     {{{"The {0}-bit Outlook finds a SiUSBXp.dll of the other kind: {1}",
        "Replace it by the {0}-bit one."},
       {"L'Outlook {0} bits trouve une SiUSBXp.dll de l'autre type : {1}",
        "Remplacez-la par celle de {0} bits."},
       {"El Outlook de {0} bits encuentra una SiUSBXp.dll del otro tipo: {1}",
        "Sustitúyala por la de {0} bits."}}}},
    {"library-incomplete",
     {{{"This SiUSBXp.dll is too old, it has no function {1}: {0}",
        "Replace it by the one that came with the base."},
       {"Cette SiUSBXp.dll est trop ancienne, la fonction {1} lui manque : {0}",
        "Remplacez-la par celle fournie avec la base."},
       {"Esta SiUSBXp.dll es demasiado antigua, le falta la función {1}: {0}",
        "Sustitúyala por la que venía con la base."}}}},
    {"no-base",
     {{{"Windows sees no telephone base.",
        "Plug the base in, and install its driver if Windows asks for one."},
       {"Windows ne voit aucune base téléphonique.",
        "Branchez la base, et installez son pilote si Windows le demande."},
       {"Windows no ve ninguna base telefónica.",
        "Conecte la base e instale su controlador si Windows lo pide."}}}},
    {"base-in-use",
     {{{"A program uses the telephone base, and no Outlook with the plug-in is running: {0}",
        "Close the program that uses the base, then start Outlook."},
       {"Un programme utilise la base téléphonique, mais aucun Outlook avec le complément n'est "
        "ouvert : {0}",
        "Fermez le programme qui utilise la base, puis démarrez Outlook."},
       {"Un programa usa la base telefónica y no hay ningún Outlook abierto con el complemento: "
        "{0}",
        "Cierre el programa que usa la base y abra Outlook."}}}},
    {"settings-unreadable",
     {{{"The settings file cannot be read: {0}",
        "Nothing needs to be done: at its next start the plug-in sets it aside and begins a new "
        "one."},
       {"Le fichier de paramètres est illisible : {0}",
        "Il n'y a rien à faire : à son prochain démarrage, le complément le met de côté et en "
        "commence "
        "un nouveau."},
       {"El archivo de ajustes no se puede leer: {0}",
        "No hay que hacer nada: en el próximo inicio el complemento lo aparta y empieza uno "
        "nuevo."}}}},
    {"settings-read-only",
     {{{"The settings file cannot be written to: {0}",
        "Take its \"read-only\" mark away; until then changes are lost when Outlook ends."},
       {"Le fichier de paramètres ne peut pas être écrit : {0}",
        "Enlevez son attribut « lecture seule » ; d'ici là, les changements se perdent à la "
        "fermeture "
        "d'Outlook."},
       {"No se puede escribir en el archivo de ajustes: {0}",
        "Quítele el atributo «solo lectura»; mientras tanto los cambios se pierden al cerrar "
        "Outlook."}}}},
    {"settings-aside",
     {{{"Settings files that could not be read were set aside: {0}.",
        "Delete vex_cfg.bad*.xml when you do not need them any more."},
       {"Fichiers de paramètres illisibles mis de côté : {0}.",
        "Supprimez vex_cfg.bad*.xml quand vous n'en avez plus besoin."},
       {"Archivos de ajustes ilegibles apartados: {0}.",
        "Elimine vex_cfg.bad*.xml cuando ya no los necesite."}}}},
    {"not-connected",
     {{{"Outlook runs, but the plug-in is not loaded in it.",
        "Close Outlook, repair what else is listed here, and start it again."},
       {"Outlook est ouvert, mais le complément n'y est pas chargé.",
        "Fermez Outlook, réparez ce qui figure ici, puis redémarrez-le."},
       {"Outlook está abierto, pero no tiene cargado el complemento.",
        "Cierre Outlook, repare lo demás de esta lista y vuelva a abrirlo."}}}},
    {"not-among-add-ins",
     {{{"Outlook runs, and does not know the plug-in.",
        "Close Outlook and start it again; if that does not help, run the set-up program again."},
       {"Outlook est ouvert et ne connaît pas le complément.",
        "Fermez puis redémarrez Outlook ; si cela ne suffit pas, relancez le programme "
        "d'installation."},
       {"Outlook está abierto y no conoce el complemento.",
        "Cierre Outlook y vuelva a abrirlo; si no basta, ejecute de nuevo el programa de "
        "instalación."}}}},
    {"slow",
     {{{"In its last five sessions Outlook waited {0} ms for the plug-in {2}. From {1} ms on it "
        "may "
        "disable add-ins.",
        "Nothing needs to be done yet; if Outlook disables the plug-in, repair it here and send a "
        "report."},
       {"Lors de ses cinq dernières sessions, Outlook a attendu le complément {0} ms {2}. À partir "
        "de {1} ms, il peut désactiver un complément.",
        "Il n'y a rien à faire pour l'instant ; si Outlook désactive le complément, réparez ici et "
        "envoyez un rapport."},
       {"En sus últimas cinco sesiones Outlook esperó al complemento {0} ms {2}. A partir de {1} "
        "ms "
        "puede deshabilitar un complemento.",
        "Por ahora no hay que hacer nada; si Outlook deshabilita el complemento, repárelo aquí y "
        "envíe un informe."}}}},
}};

using Words = std::array<const char*, kLanguages>;

struct Meaning {
  uint32_t value;
  Words words;
};

constexpr Meaning kLoadBehaviors[] = {
    {0, {"never loaded", "jamais chargé", "nunca se carga"}},
    {1, {"loaded by hand", "chargé à la main", "cargado a mano"}},
    {2, {"switched off", "désactivé", "desactivado"}},
    {3, {"loaded at each start", "chargé à chaque démarrage", "se carga en cada inicio"}},
    {8, {"on demand, not loaded", "à la demande, non chargé", "a petición, no cargado"}},
    {9, {"on demand, loaded", "à la demande, chargé", "a petición, cargado"}},
    {16, {"at the first start", "au premier démarrage", "en el primer inicio"}},
};

// The phases of a session, in the order of Slow's third argument.
constexpr Meaning kPhases[] = {
    {0, {"at its start", "à son démarrage", "al iniciarse"}},
    {1, {"when folders changed", "au changement de dossier", "al cambiar de carpeta"}},
    {2, {"when it closed", "à sa fermeture", "al cerrarse"}},
};

constexpr Meaning kReasons[] = {
    {1, {"slow start", "démarrage lent", "inicio lento"}},
    {2, {"slow loading on demand", "chargement lent à la demande", "carga lenta a petición"}},
    {3, {"crash", "plantage", "cierre inesperado"}},
    {4,
     {"slow when folders change", "lent au changement de dossier", "lento al cambiar de carpeta"}},
    {5,
     {"slow before folders change", "lent avant le changement de dossier",
      "lento antes de cambiar de carpeta"}},
    {6, {"slow when items open", "lent à l'ouverture d'un élément", "lento al abrir un elemento"}},
    {7, {"too many calls", "trop d'appels", "demasiadas llamadas"}},
    {8, {"slow shutdown", "fermeture lente", "cierre lento"}},
    {9, {"crash, kept", "plantage, conservé", "cierre inesperado, conservado"}},
    {10, {"crash, kept", "plantage, conservé", "cierre inesperado, conservado"}},
};

std::string MeaningOf(std::span<const Meaning> meanings, uint32_t value, Language language) {
  for (const Meaning& meaning : meanings) {
    if (meaning.value == value) return meaning.words[static_cast<size_t>(language)];
  }
  return std::to_string(value);
}

std::string Filled(std::string text, const std::vector<std::string>& arguments) {
  std::string filled;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto argument = static_cast<size_t>(text[i + 1 < text.size() ? i + 1 : i] - '0');
    if (text[i] == '{' && i + 2 < text.size() && text[i + 2] == '}' &&
        argument < arguments.size()) {
      filled += arguments[argument];
      i += 2;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace

Sentences InWords(const Finding& finding, Language language) {
  const Text& text =
      kEntries[static_cast<size_t>(finding.kind)].texts[static_cast<size_t>(language)];
  std::vector<std::string> arguments = finding.arguments;
  if (finding.kind == FindingKind::Kept && arguments.size() > 1) {
    arguments[1] = ReasonInWords(static_cast<uint32_t>(std::stoul(arguments[1])), language);
  }
  if (finding.kind == FindingKind::Slow && arguments.size() > 2) {
    arguments[2] = MeaningOf(kPhases, static_cast<uint32_t>(std::stoul(arguments[2])), language);
  }
  return {Filled(text.what, arguments), Filled(text.cure, arguments)};
}

const char* Name(FindingKind kind) {
  return kEntries[static_cast<size_t>(kind)].name;
}

std::string LoadBehaviorInWords(uint32_t value, Language language) {
  return MeaningOf(kLoadBehaviors, value, language);
}

std::string ReasonInWords(uint32_t reason, Language language) {
  return MeaningOf(kReasons, reason, language);
}

}  // namespace quor::doctor
