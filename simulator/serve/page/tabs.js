// The panels of the workbench, one shown at a time; arrow keys go from tab to tab.

export function makeTabs(list, panels, entries) {
  const tabs = entries.map(({ name, make }, index) => {
    const id = name.toLowerCase();
    const tab = document.createElement('button');
    tab.type = 'button';
    tab.role = 'tab';
    tab.id = `tab-${id}`;
    tab.textContent = name;
    tab.setAttribute('aria-controls', `panel-${id}`);
    const panel = document.createElement('div');
    panel.role = 'tabpanel';
    panel.id = `panel-${id}`;
    panel.setAttribute('aria-labelledby', tab.id);
    list.append(tab);
    panels.append(panel);
    tab.addEventListener('click', () => show(index));
    return { tab, panel, shown: make(panel) };
  });

  const show = (chosen) => {
    tabs.forEach(({ tab, panel, shown }, index) => {
      const isChosen = index === chosen;
      tab.setAttribute('aria-selected', isChosen);
      tab.tabIndex = isChosen ? 0 : -1;
      const change = panel.hidden === isChosen;
      panel.hidden = !isChosen;
      if (change) shown?.(isChosen);
    });
  };

  list.addEventListener('keydown', (event) => {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!step) return;
    const now = tabs.findIndex(({ tab }) => tab === document.activeElement);
    const next = (now + step + tabs.length) % tabs.length;
    show(next);
    tabs[next].tab.focus();
  });
  for (const { panel } of tabs) panel.hidden = true;
  show(0);
}
