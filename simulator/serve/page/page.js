// Puts the page together.

import { Connection } from './connection.js';
import { makeConsole } from './console.js';
import { makeControls } from './controls.js';
import { Finger } from './finger.js';
import { makeJournal } from './journal.js';
import { makeRecorder } from './recorder.js';
import { Screen } from './screen.js';
import { makeSettings } from './settings.js';
import { makeStart } from './start.js';
import { makeTabs } from './tabs.js';
import { makeViews } from './views.js';

const element = (id) => document.getElementById(id);
const connection = new Connection();
const canvas = element('screen');
const screen = new Screen(canvas, connection);
const finger = new Finger(canvas, element('finger'), screen, connection);

makeControls(element('controls'), connection);
makeStart(element('start'), connection);
makeTabs(element('tabs'), element('panels'), [
  { name: 'Views', make: (panel) => makeViews(panel, connection, screen, finger, element('marked')) },
  { name: 'Console', make: (panel) => makeConsole(panel, connection) },
  { name: 'Journal', make: (panel) => makeJournal(panel, connection) },
  { name: 'Settings', make: (panel) => makeSettings(panel, connection) },
  { name: 'Record', make: (panel) => makeRecorder(panel, connection) },
]);

connection.addEventListener('open', () => {
  element('connection').textContent = 'Connected';
  document.body.classList.add('connected');
});
connection.addEventListener('closed', ({ detail }) => {
  element('connection').textContent = detail.reason ? `Closed: ${detail.reason}` : 'Connecting…';
  document.body.classList.remove('connected');
});
connection.addEventListener('state', ({ detail }) => {
  document.body.classList.toggle('home-button', detail.homeButton);
  document.body.classList.toggle('lying', detail.width > detail.height);
  element('home-button').hidden = !detail.homeButton;
  element('welcome').hidden = !detail.welcome;
});

// It has been noted as shown by now: the next start has none.
element('welcome-seen').addEventListener('click', () => connection.send({ do: 'start' }));

connection.connect();

// For whoever has the browser's own console open, and for tests.
window.vantori = { connection, screen, finger };
