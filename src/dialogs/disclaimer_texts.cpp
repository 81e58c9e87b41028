#include "dialogs/disclaimer_texts.hpp"

namespace pelrath {

const DisclaimerTexts englishDisclaimer{
    "I accept", "I refuse",
    "Hi,\r\n"
    "\r\n"
    "Pelrath is the work of evenings and weekends, made out of fondness for a combat flight simulator "
    "and for the aircraft in it. It has no connection with the simulator's developer or with its "
    "publisher; it was written with great respect for what they have made. The software is given to the "
    "community free of charge, to be used for the good of that community, on condition that the "
    "developer's work and the author's are both respected.\r\n"
    "Clear skies, and may your paint dry without a run.\r\n"
    "\r\n"
    "The author of Pelrath\r\n"
    "22-Nov-2026",
    "As a user of Pelrath I undertake not to harm the work of the simulator's developer and of its "
    "publisher, to use this software for non-profit activity only, and to share the results with the "
    "community of the simulator's users."};

const DisclaimerTexts frenchDisclaimer{
    "J'accepte", "Je refuse",
    "Bonjour,\r\n"
    "\r\n"
    "Pelrath est l'\u0153uvre de soir\u00E9es et de fins de semaine, n\u00E9e de l'amour d'un simulateur "
    "de combat a\u00E9rien et des avions qu'on y rencontre. Pelrath n'a aucun lien avec le "
    "d\u00E9veloppeur du simulateur ni avec son \u00E9diteur\u00A0; il a \u00E9t\u00E9 \u00E9crit avec "
    "un grand respect pour leur travail. Le logiciel est offert gratuitement \u00E0 la communaut\u00E9, "
    "pour servir au bien de celle-ci, \u00E0 condition que le travail du d\u00E9veloppeur et celui de "
    "l'auteur soient respect\u00E9s l'un et l'autre.\r\n"
    "Bon vol, et que vos peintures s\u00E8chent sans une coulure.\r\n"
    "\r\n"
    "L'auteur de Pelrath\r\n"
    "22 novembre 2026",
    "En tant qu'utilisateur de Pelrath, je m'engage \u00E0 ne pas nuire au travail du d\u00E9veloppeur "
    "du simulateur ni \u00E0 celui de son \u00E9diteur, \u00E0 n'utiliser ce logiciel que pour des "
    "activit\u00E9s sans but lucratif, et \u00E0 partager ce que j'en tire avec la communaut\u00E9 des "
    "utilisateurs du simulateur.\r\n"
    "Le d\u00E9veloppeur du simulateur reste seul ma\u00EEtre de son \u0153uvre et de ses textures."};

} // namespace pelrath
