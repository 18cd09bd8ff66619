// The kinds of cards as the form offers them: their names in each language of the page, and a drawing of each on 40 by 40
// units. `bold` lines have the accent, `faint` ones are grey.

export const kinds = {
  metric: {
    names: { ar: 'قياس', de: 'Kennzahl', en: 'Metric', es: 'Cifra', fr: 'Chiffre clé', ja: '数値' },
    drawing: '<rect x="5" y="6" width="6" height="6" rx="2"/><path class="bold" d="M5 24h20"/><path d="M5 31h14M5 36h22"/>',
  },
  progress: {
    names: { ar: 'تقدّم', de: 'Fortschritt', en: 'Progress', es: 'Progreso', fr: 'Progression', ja: '進捗' },
    drawing: '<circle class="faint" cx="20" cy="18" r="12"/><path class="bold" d="M20 6a12 12 0 0 1 10 18.6"/><path d="M10 37h20"/>',
  },
  list: {
    names: { ar: 'قائمة', de: 'Liste', en: 'List', es: 'Lista', fr: 'Liste', ja: 'リスト' },
    drawing: '<path d="M5 8h14"/><path class="bold" d="M6 17h.1M6 26h.1M6 35h.1"/><path d="M13 17h21M13 26h16M13 35h19"/>',
  },
  note: {
    names: { ar: 'ملاحظة', de: 'Notiz', en: 'Note', es: 'Nota', fr: 'Note', ja: 'メモ' },
    drawing: '<path class="bold" d="M6 12h24M6 21h16"/><path d="M5 31h22M5 36h12"/>',
  },
  countdown: {
    names: { ar: 'عدّ تنازلي', de: 'Countdown', en: 'Countdown', es: 'Cuenta atrás', fr: 'Compte à rebours', ja: 'カウントダウン' },
    drawing: '<circle class="faint" cx="20" cy="20" r="14"/><path class="bold" d="M20 11v9l6 4"/>',
  },
};

const narrowest = 4.6;  // rem, of a choice
const gap = 0.5;

// As many columns as there is room for, but in rows of equal length: six choices stand as three and three, not as five
// and one.
function balance(element) {
  const rem = parseFloat(getComputedStyle(document.documentElement).fontSize);
  const fitting = Math.max(Math.floor((element.clientWidth / rem + gap) / (narrowest + gap)), 1);
  const rows = Math.ceil(element.childElementCount / fitting);
  element.style.setProperty('--columns', Math.ceil(element.childElementCount / rows));
}

// One radio button for each, in this order; `inLanguage` chooses among the names.
export function offerKinds(element, inLanguage) {
  for (const [kind, { names, drawing }] of Object.entries(kinds)) {
    const label = document.createElement('label');
    label.innerHTML = `<input type="radio" name="kind"><svg viewBox="0 0 40 40" aria-hidden="true">${drawing}</svg><span></span>`;
    label.querySelector('input').value = kind;
    label.querySelector('span').textContent = inLanguage(names);
    element.append(label);
  }
  new ResizeObserver(() => balance(element)).observe(element);
}
